#include "window/recording_import.h"

#include <QFileDialog>
#include <QStandardPaths>

#include "app/recording_words.h"
#include "catalogue/catalogue_lists.h"
#include "host/dialogs.h"
#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "window/core_words.h"
#include "window/fact_box.h"
#include "window/pieces.h"

namespace commtest {

namespace {

constexpr std::size_t kRecordingGrid = 2;
constexpr int kListedInstrument = 2;
constexpr int kListedNote = 3;

QString Pairs(std::int64_t count) {
    return Words::tr("%1 条", nullptr, static_cast<int>(count)).arg(GroupedNumber(count));
}

QString WordsOnPresent(const PairCount& present) {
    QString words = Pairs(present.all);
    if (present.deleted > 0) words += Words::tr("，其中已删除 %1").arg(Pairs(present.deleted));
    return words;
}

}  // namespace

RecordingImport::RecordingImport(Binder& binder, const Theme& theme, NoteBar& notes, DeletedPairs& deleted,
                                 QWidget& list)
    : QObject(&list), binder_(binder), theme_(theme), notes_(notes), deleted_(deleted), list_(list) {}

void RecordingImport::AskForFile() {
    const QString path = QFileDialog::getOpenFileName(
        &list_, Words::tr("导入录制"), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
        Words::tr("录制 (*.jsonl);;所有文件 (*)"));
    if (!path.isEmpty()) Take(path);
}

void RecordingImport::Take(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Refuse(Words::tr("%1：%2").arg(path, file.errorString()));
    const Source source{QFileInfo(path).fileName(), file.readAll()};
    Guard(source, [&] { Begin(source); });
}

// What ends it before anything has changed.
void RecordingImport::Guard(const Source& source, const std::function<void()>& step) {
    try {
        step();
    } catch (const RecordingFileError& error) {
        Refuse(Words::tr("%1 第 %2 行：%3")
                   .arg(source.name)
                   .arg(error.Fault().line)
                   .arg(ToQt(
                       FilledIn(Translated(PatternOf(error.Fault().kind)).toStdU16String(), error.Fault()))));
    } catch (const RuntimeError& error) {
        Refuse(ToQt(error.StandardMessage()));
    }
}

void RecordingImport::Refuse(const QString& reason) {
    binder_.Form().outside.dialogs.ShowMessage(Words::tr("没有导入，演示数据不变！").toStdU16String(),
                                               reason.toStdU16String());
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
    box->Say(Glyph::Unknown, Words::tr("确定要加入已有的录制吗？"));
    box->SetFact(Words::tr("文件"), source.name);
    box->SetFact(Words::tr("仪表"), ToQt(addition.instrument));
    box->SetFact(Words::tr("说明"), ToQt(addition.note));
    box->SetFact(Words::tr("现有"), WordsOnPresent(addition.present));
    box->SetFact(Words::tr("加入"), Words::tr("%1；另有 %2已有，不再加入")
                                        .arg(Pairs(std::ssize(addition.pairs)),
                                             Pairs(static_cast<std::int64_t>(addition.known))));
    QPushButton* yes = box->AddAnswer(Words::tr("是(&Y)"), true);
    QPushButton* no = box->AddAnswer(Words::tr("否(&N)"), false);
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
    const QString words =
        Words::tr("已导入 %1，%2已有：%3，%4")
            .arg(Pairs(std::ssize(addition.pairs)), Pairs(static_cast<std::int64_t>(addition.known)),
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
