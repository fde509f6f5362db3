#include "window/error_words.h"

#include <vector>

#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// A field that is to hold a number, and how the session reads it.
struct NumberField {
    QString name;
    TextView value;
    void (*read)(TextView value);
};

void ReadPort(TextView value) { ToWhole16(Trim(Mid(value, 4))); }
void ReadNumber(TextView value) { ToNumber(value); }
void ReadWhole16(TextView value) { ToWhole16(value); }
void ReadWhole32(TextView value) { ToWhole32(value); }
void ReadAddress(TextView value) { HexOf(value); }

// In the order in which they are asked.
std::vector<NumberField> FieldsOf(const MainForm& form) {
    std::vector<NumberField> fields = {{u"串口号"_s, form.ConCommSetting[0].Value(), ReadPort},
                                       {u"波特率"_s, form.BaudRate().Value(), ReadNumber},
                                       {u"通讯间隔"_s, form.ConDelayTime.Value(), ReadWhole32},
                                       {u"仪表地址"_s, form.ConMeterAddr.Value(), ReadAddress},
                                       {u"参数个数"_s, form.ConDataNub.Value(), ReadWhole16}};
    if (form.InputText.Visible())
        fields.insert(fields.begin(), {u"修改值"_s, form.InputText.Value(), ReadNumber});
    return fields;
}

bool Raises(int error, const NumberField& field) {
    try {
        field.read(field.value);
    } catch (const RuntimeError& raised) {
        return raised.Number() == error;
    }
    return false;
}

QString WordsOn(int error, const NumberField& field) {
    const QString value = ToQt(field.value).trimmed();
    if (value.isEmpty()) return u"%1 没有填写"_s.arg(field.name);
    if (error == RuntimeError::kOverflow) return u"%1 %2 超出范围"_s.arg(field.name, value);
    return (field.read == ReadPort ? u"%1 %2 不是串口"_s : u"%1 %2 不是数值"_s).arg(field.name, value);
}

}  // namespace

QString FaultyField(int error, const MainForm& form) {
    for (const NumberField& field : FieldsOf(form)) {
        if (Raises(error, field)) return WordsOn(error, field);
    }
    return {};
}

QString FaultyAnswer(int error, const QString& question, const QString& answer) {
    const Text text = answer.toStdU16String();
    const NumberField field = {question, text, ReadWhole16};
    return Raises(error, field) ? WordsOn(error, field) : QString();
}

QString WordsOnCancelled(const QString& question) {
    return u"%1 已取消，没有启用。需要时请重新勾选"_s.arg(question);
}

QString RemedyOfError(int error, bool isFound) {
    switch (error) {
        case RuntimeError::kInvalidArgument: return u"所填的内容太短或不完整，请补全后重试"_s;
        case RuntimeError::kOverflow:
            return isFound ? u"请改为较小的数值后重试"_s : u"有一个数值超出了范围，请检查所填的数值后重试"_s;
        case RuntimeError::kSubscript: return u"所要的一项不在表中，请重新选择仪表后重试"_s;
        case RuntimeError::kTypeMismatch:
            return isFound ? u"请更正后重试"_s : u"有一处所填的不是数值，请检查后重试"_s;
        case RuntimeError::kBadFile:
            return u"文件没有打开或不能写入，请检查程序文件夹能否写入、磁盘是否已满"_s;
        case RuntimeError::kFileNotFound: return u"程序文件夹里没有这个文件，请放回后重试"_s;
        case RuntimeError::kPastEndOfFile: return u"文件不完整，请换用完整的文件后重试"_s;
        case RuntimeError::kPathNotFound: return u"程序文件夹里没有所要的文件夹，请建立后重试"_s;
        case RuntimeError::kStore: return u"请检查目录文件是否完好，有没有被其它程序占用"_s;
        default: return u"请重试；仍然出错时请重新启动程序"_s;
    }
}

}  // namespace commtest
