#include "window/grid_delegate.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QTest>

#include "support/form_bench.h"
#include "support/watched_write.h"
#include "window/grid_model.h"

namespace commtest::testing {
namespace {

// Painted without gaps, so that its pixels have the very colour of the ink.
const Text kBlocks = u"███";

std::string NameOf(const QColor& colour) { return colour.name().toStdString(); }

class GridDelegateTest : public ::testing::TestWithParam<Theme::Choice> {
  protected:
    static constexpr QRect kCell{0, 0, 120, 22};
    static constexpr QPoint kGround{5, 4};  // beside the bar and the text

    FormBench bench;
    MainForm& form = bench.form;
    Grid& grid = form.ParameterGrid();
    Theme theme{GetParam()};
    qint64 now = 0;  // milliseconds, of the flash
    CellFlash flash{[](CellFlash::Cell) {}, nullptr, [this] { return now; }};
    WatchedWrite write{form};
    int index = 0;
    QStyle::State state = QStyle::State_None;

    GridDelegateTest() {
        for (Grid& each : form.MSHFlexGrid1) each.SetSize(13, 11);
    }

    const Tokens& Now() const { return theme.Now(); }

    QImage Paint(int row, int col) {
        const Grid& painted = form.MSHFlexGrid1[static_cast<std::size_t>(index)];
        GridModel model(painted, nullptr);
        GridDelegate delegate(form, index, theme, flash, nullptr);
        if (index == 0) delegate.ShowWrites(write.watch);
        delegate.ShowReadRow(form.CurrentRow);
        delegate.ShowCurrentCell(painted.Row, painted.Col);
        QImage image(kCell.size(), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QStyleOptionViewItem option;
        option.rect = kCell;
        option.state = state;
        QPainter painter(&image);
        delegate.paint(&painter, option, model.index(row - 1, col));
        return image;
    }

    QColor GroundOf(int row, int col) { return Paint(row, col).pixelColor(kGround); }

    static int CountOf(const QImage& image, const QColor& colour, const QRect& part = kCell) {
        int count = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) count += image.pixelColor(x, y) == colour;
        }
        return count;
    }

    // The bar at the left edge, three pixels wide.
    static bool HasBar(const QImage& image, const QColor& colour) {
        return CountOf(image, colour, {0, 0, 3, 22}) == 3 * 22 && image.pixelColor(3, 4) != colour;
    }
};

INSTANTIATE_TEST_SUITE_P(Palettes, GridDelegateTest,
                         ::testing::Values(Theme::Choice::Light, Theme::Choice::Dark));

TEST_P(GridDelegateTest, EverySecondRowIsStriped) {
    EXPECT_EQ(GroundOf(1, 8), Now().surface);
    EXPECT_EQ(GroundOf(2, 8), Now().zebra);
    EXPECT_EQ(GroundOf(3, 8), Now().surface);
}

TEST_P(GridDelegateTest, WholeCellIsPainted) { EXPECT_EQ(CountOf(Paint(1, 8), Now().surface), 120 * 22); }

TEST_P(GridDelegateTest, CurrentRowHasAGroundAndItsCellAnOutline) {
    grid.Select(2, 8);
    EXPECT_EQ(GroundOf(2, 7), Now().row);
    EXPECT_EQ(GroundOf(2, 8), Now().row);
    EXPECT_EQ(GroundOf(1, 8), Now().surface);
    const QImage cell = Paint(2, 8);
    for (const QPoint& edge : {QPoint(0, 0), QPoint(119, 0), QPoint(0, 21), QPoint(119, 21), QPoint(60, 21)})
        EXPECT_EQ(cell.pixelColor(edge), Now().accent) << edge.x() << " " << edge.y();
    EXPECT_EQ(CountOf(cell, Now().accent), 2 * 120 + 2 * 20);
    EXPECT_EQ(CountOf(Paint(2, 7), Now().accent), 0);
    EXPECT_EQ(CountOf(Paint(1, 8), Now().accent), 0);
}

TEST_P(GridDelegateTest, CellsThatMayBeWrittenHaveTheirGround) {
    grid.SetCell(1, 4, u"RW");
    grid.SetCell(2, 4, u"W");
    grid.SetCell(3, 4, u"R");
    EXPECT_EQ(GroundOf(1, 10), Now().edit);
    EXPECT_EQ(GroundOf(2, 10), Now().edit);
    EXPECT_EQ(GroundOf(3, 10), Now().surface);
    EXPECT_EQ(GroundOf(4, 10), Now().zebra);
    EXPECT_EQ(GroundOf(1, 9), Now().surface);
    grid.Select(1, 1);
    EXPECT_EQ(GroundOf(1, 10), Now().row);
}

TEST_P(GridDelegateTest, ListsHaveNoCellsToWrite) {
    index = 1;
    form.MSHFlexGrid1[1].SetCell(1, 4, u"RW");
    EXPECT_EQ(GroundOf(1, 10), Now().surface);
}

TEST_P(GridDelegateTest, MismatchHasAGroundAndABar) {
    grid.SetCellColour(3, 9, 0xC0C0FF);
    grid.SetCell(3, 9, kBlocks);
    const QImage cell = Paint(3, 9);
    EXPECT_EQ(cell.pixelColor(kGround), Now().warnTint);
    EXPECT_TRUE(HasBar(cell, Now().warn));
    EXPECT_GT(CountOf(cell, Now().text), 50);
    EXPECT_EQ(CountOf(Paint(3, 8), Now().warn), 0);
    EXPECT_EQ(CountOf(Paint(2, 9), Now().warn), 0);
}

TEST_P(GridDelegateTest, MismatchShowsOnTheCurrentRowAndInASelection) {
    grid.SetCellColour(3, 9, 0xC0C0FF);
    grid.Select(3, 1);
    state = QStyle::State_Selected;
    EXPECT_EQ(GroundOf(3, 9), Now().warnTint);
    EXPECT_TRUE(HasBar(Paint(3, 9), Now().warn));
}

TEST_P(GridDelegateTest, WindowColourIsNoMismatchButAGroundOfItsOwn) {
    grid.SetCell(4, 4, u"RW");
    for (const auto& [row, col] : {std::pair(3, 9), {2, 9}, {4, 10}}) {
        grid.SetCellColour(row, col, 0xC0C0FF);
        grid.SetCellColour(row, col, 0x80000005);
        EXPECT_EQ(GroundOf(row, col), Now().surface) << row;
        EXPECT_FALSE(HasBar(Paint(row, col), Now().warn)) << row;
    }
    EXPECT_EQ(GroundOf(2, 8), Now().zebra);
}

TEST_P(GridDelegateTest, WindowColourLiesUnderTheCurrentRowAndASelection) {
    grid.SetCellColour(2, 9, 0x80000005);
    grid.Select(2, 1);
    EXPECT_EQ(GroundOf(2, 9), Now().row);
    state = QStyle::State_Selected;
    EXPECT_EQ(GroundOf(2, 9), Now().tint);
    flash.Light({2, 9});
    EXPECT_EQ(GroundOf(2, 9), Now().flash);
}

TEST_P(GridDelegateTest, RowThatIsReadHasABarAndItsNumberTheSameColour) {
    form.CurrentRow = 3;
    grid.SetCell(3, 0, kBlocks);
    grid.SetCell(3, 1, kBlocks);
    const QImage number = Paint(3, 0);
    EXPECT_TRUE(HasBar(number, Now().accent));
    EXPECT_GT(CountOf(number, Now().accent), 3 * 22 + 50);
    EXPECT_EQ(CountOf(Paint(3, 1), Now().accent), 0);
    EXPECT_EQ(CountOf(Paint(2, 0), Now().accent), 0);
    index = 1;
    EXPECT_EQ(CountOf(Paint(3, 0), Now().accent), 0);
}

TEST_P(GridDelegateTest, HairlinesDivideIdentityReadingsAndEntries) {
    for (int col = 0; col < 11; ++col) {
        const bool isLast = col == 0 || col == 5 || col == 9;
        EXPECT_EQ(CountOf(Paint(1, col), Now().line, {119, 0, 1, 22}), isLast ? 22 : 0) << col;
        EXPECT_EQ(CountOf(Paint(1, col), Now().line), isLast ? 22 : 0) << col;
    }
}

TEST_P(GridDelegateTest, NameAndReadingsArePlainAndTheOthersQuiet) {
    for (int col = 0; col < 11; ++col) {
        grid.SetCell(1, col, kBlocks);
        const bool isQuiet = col != 1 && (col < 6 || col == 8);
        const QImage cell = Paint(1, col);
        EXPECT_GT(CountOf(cell, isQuiet ? Now().text2 : Now().text), 50) << col;
        EXPECT_EQ(CountOf(cell, isQuiet ? Now().text : Now().text2), 0) << col;
    }
}

TEST_P(GridDelegateTest, ChosenCellsHaveAGroundButTheCurrentOneKeepsItsOwn) {
    grid.Select(2, 8);
    state = QStyle::State_Selected;
    EXPECT_EQ(GroundOf(3, 8), Now().tint);
    EXPECT_EQ(GroundOf(2, 7), Now().tint);
    EXPECT_EQ(GroundOf(2, 8), Now().row);
}

TEST_P(GridDelegateTest, TextsStandAsTheirColumnSays) {
    struct Standing {
        int alignment;
        int left;  // of the pixels that the text may take
        int right;
    };
    for (const Standing& row : {Standing{1, 8, 59}, Standing{4, 35, 85}, Standing{7, 60, 111}}) {
        grid.Column(7).alignment = row.alignment;
        grid.SetCell(1, 7, kBlocks);
        const QImage cell = Paint(1, 7);
        const QRect room(row.left, 0, row.right - row.left + 1, 22);
        EXPECT_GT(CountOf(cell, Now().text, room), 50) << row.alignment;
        EXPECT_EQ(CountOf(cell, Now().text), CountOf(cell, Now().text, room)) << row.alignment;
    }
}

TEST_P(GridDelegateTest, LongTextIsCutOffWithinTheCell) {
    grid.SetCell(1, 7, Text(60, u'█'));
    const QImage cell = Paint(1, 7);
    EXPECT_GT(CountOf(cell, Now().text, {8, 0, 104, 22}), 300);
    EXPECT_EQ(CountOf(cell, Now().surface, {0, 0, 7, 22}), 7 * 22);
    EXPECT_EQ(CountOf(cell, Now().surface, {113, 0, 7, 22}), 7 * 22);
    EXPECT_EQ(CountOf(cell, Now().text, {106, 0, 6, 10}), 0);  // the dots stand below
}

TEST_P(GridDelegateTest, LitCellHasTheGroundOfTheFlashAndPlainText) {
    grid.SetCell(1, 8, kBlocks);
    flash.Light({1, 8});
    const QImage cell = Paint(1, 8);
    EXPECT_EQ(cell.pixelColor(kGround), Now().flash);
    EXPECT_GT(CountOf(cell, Now().text), 50);
    EXPECT_EQ(GroundOf(1, 7), Now().surface);
    EXPECT_EQ(GroundOf(2, 8), Now().zebra);
}

TEST_P(GridDelegateTest, FlashLiesOverAMismatchWhoseBarStays) {
    grid.SetCellColour(3, 9, 0xC0C0FF);
    flash.Light({3, 9});
    EXPECT_EQ(GroundOf(3, 9), Now().flash);
    EXPECT_TRUE(HasBar(Paint(3, 9), Now().warn));
}

TEST_P(GridDelegateTest, FadingFlashIsHalfTheGround) {
    flash.Light({1, 8});
    now = 250;
    ASSERT_TRUE(QTest::qWaitFor([&] { return flash.StrengthOf({1, 8}) < 1; }));
    const bool isLight = GetParam() == Theme::Choice::Light;
    EXPECT_EQ(NameOf(GroundOf(1, 8)), isLight ? "#dcf1f7" : "#173a46");
}

// The cell of column 10 in row 1, whose value is 6.
class WrittenCellTest : public GridDelegateTest {
  protected:
    static constexpr QRect kSign{8, 3, 16, 16};

    WrittenCellTest() {
        write.LayOut(12);
        write.Enter(1, u"6");
    }

    QImage Cell() { return Paint(1, 10); }
    static bool HasSign(const QImage& cell, Glyph glyph, const QColor& ink, const QColor& ground) {
        QImage expected(kSign.size(), QImage::Format_RGB32);
        expected.fill(ground);
        QPainter(&expected).drawPixmap(0, 0, GlyphPicture(glyph, ink, 16, 1));
        return cell.copy(kSign) == expected;
    }
    bool HasValue(const QImage& cell) const {
        return CountOf(cell, Now().text, {60, 0, 52, 22}) > 50 &&
               CountOf(cell, Now().text, {24, 0, 36, 22}) == 0;
    }
};

INSTANTIATE_TEST_SUITE_P(Palettes, WrittenCellTest,
                         ::testing::Values(Theme::Choice::Light, Theme::Choice::Dark));

TEST_P(WrittenCellTest, ValueThatWasSentHasDotsAtTheLeft) {
    grid.Column(10).alignment = 7;
    write.Enter(1, kBlocks);
    EXPECT_TRUE(HasSign(Cell(), Glyph::Dots, Now().accent, Now().edit));
    EXPECT_TRUE(HasValue(Cell()));
    EXPECT_EQ(CountOf(Paint(2, 10), Now().edit), 120 * 22) << "the others have none";
}

TEST_P(WrittenCellTest, AnsweredValueHasQuietDotsUntilItIsRead) {
    write.Answers(Answer::Written);
    EXPECT_TRUE(HasSign(Cell(), Glyph::Dots, Now().text2, Now().edit));
}

TEST_P(WrittenCellTest, ValueReadBackEqualHasATick) {
    write.Answers(Answer::Written);
    write.Reads(1, u"6");
    EXPECT_TRUE(HasSign(Cell(), Glyph::Tick, Now().accent, Now().edit));
    EXPECT_FALSE(HasBar(Cell(), Now().warn));
}

TEST_P(WrittenCellTest, OtherValueReadBackHasAWarningsGroundAndBarAlsoOnTheCurrentRow) {
    write.Answers(Answer::Written);
    write.Reads(1, u"7");
    for (const int row : {2, 1}) {
        grid.Select(row, 1);
        EXPECT_TRUE(HasSign(Cell(), Glyph::Differs, Now().warn, Now().warnTint));
        EXPECT_TRUE(HasBar(Cell(), Now().warn));
        EXPECT_EQ(GroundOf(1, 10), Now().warnTint);
    }
}

TEST_P(WrittenCellTest, RefusalHasItsSignAndABar) {
    write.Answers(Answer::Refused);
    EXPECT_TRUE(HasSign(Cell(), Glyph::Refused, Now().warn, Now().edit));
    EXPECT_TRUE(HasBar(Cell(), Now().warn));
}

TEST_P(WrittenCellTest, SilenceHasAQuestionMarkAndNoBar) {
    write.IsSilent();
    EXPECT_TRUE(HasSign(Cell(), Glyph::Unknown, Now().warn, Now().edit));
    EXPECT_FALSE(HasBar(Cell(), Now().warn));
}

TEST_P(GridDelegateTest, CellThatIsGoneSinceTheLastLookIsLeftOut) {
    GridModel model(grid, nullptr);
    const GridDelegate delegate(form, 0, theme, flash, nullptr);
    QImage image(kCell.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QStyleOptionViewItem option;
    option.rect = kCell;
    grid.SetSize(3, 4);
    QPainter painter(&image);
    delegate.paint(&painter, option, model.index(5, 1));
    delegate.paint(&painter, option, model.index(0, 9));
    EXPECT_EQ(CountOf(image, Qt::magenta), 120 * 22);
}

}  // namespace
}  // namespace commtest::testing
