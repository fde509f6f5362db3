#include "window/recording_import.h"

#include <QFileDialog>
#include <QStandardPaths>

#include "app/recording_words.h"
#include "catalogue/catalogue_lists.h"
#include "host/dialogs.h"
#include "runtime/runtime_error.h"
#include "window/fact_box.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kRecordingGrid = 2;
constexpr int kListedInstrument = 2;
constexpr int kListedNote = 3;

QString Pairs(std::int64_t count) { return u"%1 条"_s.arg(GroupedNumber(count)); }

QString WordsOnPresent(const PairCount& present) {
    QString words = Pairs(present.all);
    if (present.deleted > 0) words += u"，其中已删除 "_s + Pairs(present.deleted);
    return words;
}

}  // namespace

RecordingImport::RecordingImport(Binder& binder, const Theme& theme, NoteBar& notes, DeletedPairs& deleted,
                                 QWidget& list)
    : QObject(&list), binder_(binder), theme_(theme), notes_(notes), deleted_(deleted), list_(list) {}

void RecordingImport::AskForFile() {
    const QString path = QFileDialog::getOpenFileName(
        &list_, u"导入录制"_s, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
        u"录制 (*.jsonl);;所有文件 (*)"_s);
    if (!path.isEmpty()) Take(path);
}

void RecordingImport::Take(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Refuse(u"%1：%2"_s.arg(path, file.errorString()));
    const Source source{QFileInfo(path).fileName(), file.readAll()};
    Guard(source, [&] { Begin(source); });
}

// What ends it before anything has changed.
void RecordingImport::Guard(const Source& source, const std::function<void()>& step) {
    try {
        step();
    } catch (const RecordingFileError& error) {
        Refuse(u"%1 第 %2 行：%3"_s.arg(source.name)
                   .arg(error.Fault().line)
                   .arg(ToQt(WordsOnFault(error.Fault()))));
    } catch (const RuntimeError& error) {
        Refuse(ToQt(error.StandardMessage()));
    }
}

void RecordingImport::Refuse(const QString& reason) {
    binder_.Form().outside.dialogs.ShowMessage(u"没有导入，演示数据不变！", reason.toStdU16String());
}

RecordingAddition RecordingImport::AdditionOfSource(const Source& source) const {
    return AdditionOf({source.bytes.data(), static_cast<std::size_t>(source.bytes.size())},
                      Recordings(binder_.Form().outside.store));
}

void RecordingImport::Begin(const Source& source) {
    const RecordingAddition addition = AdditionOfSource(source);
    if (addition.GoesToAnExistingNote()) {
        Ask(source, addition);
    } else {
        Add(addition);
    }
}

// While the box stands, a capture may go on under the same note.
void RecordingImport::Ask(const Source& source, const RecordingAddition& addition) {
    auto* box = new FactBox(theme_, list_.window());
    box->Say(Glyph::Unknown, u"确定要加入已有的录制吗？"_s);
    box->SetFact(u"文件"_s, source.name);
    box->SetFact(u"仪表"_s, ToQt(addition.instrument));
    box->SetFact(u"说明"_s, ToQt(addition.note));
    box->SetFact(u"现有"_s, WordsOnPresent(addition.present));
    box->SetFact(u"加入"_s, Pairs(std::ssize(addition.pairs)) + u"；另有 "_s +
                                Pairs(static_cast<std::int64_t>(addition.known)) + u"已有，不再加入"_s);
    QPushButton* yes = box->AddAnswer(u"是(&Y)"_s, true);
    QPushButton* no = box->AddAnswer(u"否(&N)"_s, false);
    connect(yes, &QPushButton::clicked, box, &QDialog::accept);
    connect(no, &QPushButton::clicked, box, &QDialog::reject);
    connect(box, &QDialog::accepted, this,
            [this, source] { Guard(source, [&] { Add(AdditionOfSource(source)); }); });
    no->setDefault(true);
    no->setFocus();
    box->open();
}

void RecordingImport::Add(const RecordingAddition& addition) {
    Recordings(binder_.Form().outside.store).Add(addition.pairs);
    ShowInList(addition);
    const QString words = u"已导入 %1，%2已有：%3，%4"_s.arg(Pairs(std::ssize(addition.pairs)),
                                                             Pairs(static_cast<std::int64_t>(addition.known)),
                                                             ToQt(addition.instrument), ToQt(addition.note));
    notes_.Say(words);
    deleted_.TellBehind(words, addition.instrument, addition.note);
}

void RecordingImport::ShowInList(const RecordingAddition& addition) {
    MainForm& form = binder_.Form();
    binder_.Event([&] {
        SSTab2_Click(form);
        Grid& grid = form.MSHFlexGrid1[kRecordingGrid];
        for (int row = 1; row < grid.Rows(); ++row) {
            const bool isIt = grid.Cell(row, kListedInstrument) == addition.instrument &&
                              grid.Cell(row, kListedNote) == addition.note;
            if (isIt) return grid.Select(row, kListedInstrument);
        }
    });
}

}  // namespace commtest
