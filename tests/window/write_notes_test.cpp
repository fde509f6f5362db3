#include "window/write_notes.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <optional>

#include "support/watched_write.h"
#include "window/glyphs.h"
#include "window/grid_view.h"
#include "window/note_bar.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

// Row 1, 给定值, and what is said of the write to it.
class WriteNotesTest : public ::testing::Test {
  protected:
    ViewBench bench;
    MainForm& form = bench.Form();
    NoteBar notes{bench.theme};
    WatchedWrite write{form};
    WriteWatch watch{form};
    GridView view{bench.binder, bench.theme, 0, nullptr};

    WriteNotesTest() {
        view.ShowWrites(watch);
        FollowWrites(bench.binder, watch, view, notes);
        view.resize(1200, 400);
        view.show();
        notes.show();
    }

    void Enter(const Text& value) {
        write.Enter(1, value);
        watch.Begin(1);
        bench.binder.Look();
    }
    std::string Data(Qt::ItemDataRole role, int row = 1) const {
        return view.model()->index(row - 1, 10).data(role).toString().toStdString();
    }
    // Null where there is none.
    QImage Sign() const {
        for (const QLabel* label : notes.findChildren<QLabel*>()) {
            const QPixmap picture = label->pixmap(Qt::ReturnByValue);
            if (label->isVisible() && !picture.isNull()) return picture.toImage();
        }
        return {};
    }
    // What the note says, and the sign of a failure; the tooltip says the same without the row.
    void ExpectSaid(const std::string& words, std::optional<Glyph> sign = {}) {
        bench.binder.Look();
        EXPECT_EQ(notes.Text().toStdString(), "001 给定值：" + words);
        EXPECT_EQ(Data(Qt::ToolTipRole), words);
        const QColor warn = bench.theme.Now().warn;
        EXPECT_EQ(Sign(), sign ? GlyphPicture(*sign, warn, 16, 1).toImage() : QImage()) << words;
    }
};

TEST_F(WriteNotesTest, ValueThatWasSentIsWaitedFor) {
    Enter(u"6");
    ExpectSaid("已发送 6，等待应答");
}

TEST_F(WriteNotesTest, ReadBackEqualIsSaid) {
    Enter(u"200.0");
    write.Answers(Answer::Written);
    ExpectSaid("已应答，尚未读回");
    write.Reads(1, u"200");
    ExpectSaid("已写入 200.0，读回一致");
}

TEST_F(WriteNotesTest, OtherValueReadBackIsAWarning) {
    Enter(u"20000");
    write.Answers(Answer::Written);
    write.Reads(1, u"339.2");
    ExpectSaid("写入 20000，读回 339.2", Glyph::Differs);
}

TEST_F(WriteNotesTest, RefusalHasTheWordsOfTheInstrument) {
    Enter(u"6");
    write.Answers(Answer::Refused);
    ExpectSaid("被拒绝：1# 仪表的通讯出错", Glyph::Refused);
}

TEST_F(WriteNotesTest, SilenceIsAWarning) {
    Enter(u"6");
    write.IsSilent();
    ExpectSaid("未确认：仪表无应答，尚未读回", Glyph::Unknown);
}

TEST_F(WriteNotesTest, AnswerWithAWrongCheckWordIsNoSilence) {
    Enter(u"6");
    write.Answers(Answer::Written, Ending::Complete, CheckWord::Wrong);
    ExpectSaid("未确认：应答不正确，尚未读回", Glyph::Unknown);
}

TEST_F(WriteNotesTest, SameOutcomeIsSaidOnce) {
    Enter(u"6");
    write.Answers(Answer::Written);
    write.Reads(1, u"6");
    bench.binder.Look();
    notes.Say("别的");
    write.Reads(1, u"6");
    bench.binder.Look();
    EXPECT_EQ(notes.Text().toStdString(), "别的");
}

TEST_F(WriteNotesTest, CellIsHeardWithItsParameterValueAndOutcome) {
    Enter(u"20000");
    write.Answers(Answer::Written);
    write.Reads(1, u"339.2");
    bench.binder.Look();
    EXPECT_EQ(Data(Qt::AccessibleTextRole), "给定值，20000，写入 20000，读回 339.2");
    EXPECT_EQ(Data(Qt::AccessibleTextRole, 2), "报警值");
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->tableInterface()->cellAt(0, 10)->text(QAccessible::Name).toStdString(),
              "给定值，20000，写入 20000，读回 339.2");
}

TEST_F(WriteNotesTest, CellThatWasClearedSaysNothing) {
    Enter(u"6");
    form.ParameterGrid().SetCell(1, 10, u"");
    bench.binder.Look();
    EXPECT_EQ(Data(Qt::ToolTipRole), "");
}

TEST_F(WriteNotesTest, CellIsPaintedAnewWhereItsOutcomeChanges) {
    Enter(u"6");
    QModelIndex changed;
    QObject::connect(view.model(), &QAbstractItemModel::dataChanged, &view,
                     [&](const QModelIndex& cell) { changed = cell; });
    write.IsSilent();
    bench.binder.Look();
    EXPECT_EQ(changed.row(), 0);
    EXPECT_EQ(changed.column(), 10);
}

}  // namespace
}  // namespace commtest::testing
