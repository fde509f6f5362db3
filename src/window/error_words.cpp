#include "window/error_words.h"

#include <vector>

#include "host_qt/words.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/grid_rows.h"
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

QString WithoutColon(TextView caption) { return ToQt(caption).chopped(1); }

// In the order in which they are asked, named as they are on the screen.
std::vector<NumberField> FieldsOf(const MainForm& form) {
    const Captions& captions = form.texts.captions;
    std::vector<NumberField> fields = {
        {WithoutColon(captions.portFields[0]), form.ConCommSetting[0].Value(), ReadPort},
        {WithoutColon(captions.portFields[1]), form.BaudRate().Value(), ReadNumber},
        {u"通讯间隔"_s, form.ConDelayTime.Value(), ReadWhole32},
        {ToQt(captions.instrumentAddress), form.ConMeterAddr.Value(), ReadAddress},
        {ToQt(captions.parameterCount), form.ConDataNub.Value(), ReadWhole16}};
    if (form.InputText.Visible())
        fields.insert(fields.begin(), {ToQt(form.texts.parameterHeadings[column::kNewValue]),
                                       form.InputText.Value(), ReadNumber});
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
    if (value.isEmpty()) return Words::tr("%1 没有填写").arg(field.name);
    if (error == RuntimeError::kOverflow) return Words::tr("%1 %2 超出范围").arg(field.name, value);
    return (field.read == ReadPort ? Words::tr("%1 %2 不是串口") : Words::tr("%1 %2 不是数值"))
        .arg(field.name, value);
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
    return Words::tr("%1 已取消，没有启用。需要时请重新勾选").arg(question);
}

QString RemedyOfError(int error, bool isFound) {
    switch (error) {
        case RuntimeError::kInvalidArgument: return Words::tr("所填的内容太短或不完整，请补全后重试");
        case RuntimeError::kOverflow:
            return isFound ? Words::tr("请改为较小的数值后重试")
                           : Words::tr("有一个数值超出了范围，请检查所填的数值后重试");
        case RuntimeError::kSubscript: return Words::tr("所要的一项不在表中，请重新选择仪表后重试");
        case RuntimeError::kTypeMismatch:
            return isFound ? Words::tr("请更正后重试") : Words::tr("有一处所填的不是数值，请检查后重试");
        case RuntimeError::kBadFile:
            return Words::tr("文件没有打开或不能写入，请检查程序文件夹能否写入、磁盘是否已满");
        case RuntimeError::kFileNotFound: return Words::tr("程序文件夹里没有这个文件，请放回后重试");
        case RuntimeError::kPastEndOfFile: return Words::tr("文件不完整，请换用完整的文件后重试");
        case RuntimeError::kPathNotFound: return Words::tr("程序文件夹里没有所要的文件夹，请建立后重试");
        case RuntimeError::kStore: return Words::tr("请检查目录文件是否完好，有没有被其它程序占用");
        default: return Words::tr("请重试；仍然出错时请重新启动程序");
    }
}

}  // namespace commtest
