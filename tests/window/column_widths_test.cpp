#include "window/column_widths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDataStream>
#include <QFontMetrics>
#include <QIODevice>
#include <numeric>

#include "window/theme.h"

namespace commtest::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;

// As the widths are stored.
QByteArray Stored(const QList<qint32>& widths) {
    QByteArray saved;
    QDataStream stream(&saved, QIODevice::WriteOnly);
    stream << widths;
    return saved;
}

int SumOf(const std::vector<int>& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

class ColumnWidthsTest : public ::testing::Test {
  protected:
    static constexpr int kSmallest = 998;  // of all columns together
    Grid grid;

    ColumnWidthsTest() { grid.SetSize(13, 11); }

    ColumnWidths Parameters(const WindowFace& face = kWindowFaces[0]) { return {grid, 0, face.layout}; }
};

TEST_F(ColumnWidthsTest, NarrowRoomLeavesTheSmallestWidths) {
    for (const int room : {0, 500, kSmallest}) {
        EXPECT_THAT(Parameters().InRoom(room), ElementsAre(48, 172, 60, 48, 52, 60, 104, 118, 100, 116, 120));
    }
}

TEST_F(ColumnWidthsTest, LongHeadingsOfTheEnglishFaceHaveTheirRoom) {
    EXPECT_THAT(Parameters(*FindFace(u"english")).InRoom(0),
                ElementsAre(48, 172, 60, 52, 72, 60, 104, 118, 100, 116, 144));
}

TEST_F(ColumnWidthsTest, SpareWidthGoesByWeight) {
    EXPECT_THAT(Parameters().InRoom(kSmallest + 100),
                ElementsAre(48, 212, 62, 50, 54, 62, 116, 134, 108, 124, 128));
}

TEST_F(ColumnWidthsTest, WholeRoomIsUsed) {
    grid.Column(1).width = 3450;
    grid.Column(2).width = 1065;
    for (int room = kSmallest; room < kSmallest + 300; room += 7)
        EXPECT_EQ(SumOf(Parameters().InRoom(room)), room);
}

TEST_F(ColumnWidthsTest, WidthOfTheCatalogueComesBeforeTheWeights) {
    grid.Column(1).width = 3450;  // 230 pixels, 58 more than the smallest
    EXPECT_EQ(Parameters().InRoom(kSmallest + 29).at(1), 201);
    EXPECT_EQ(Parameters().InRoom(kSmallest + 29).at(7), 118);
    EXPECT_THAT(Parameters().InRoom(kSmallest + 58),
                ElementsAre(48, 230, 60, 48, 52, 60, 104, 118, 100, 116, 120));
    EXPECT_THAT(Parameters().InRoom(kSmallest + 158),
                ElementsAre(48, 270, 62, 50, 54, 62, 116, 134, 108, 124, 128));
}

TEST_F(ColumnWidthsTest, WidthsOfTheCatalogueShareWhatThereIs) {
    grid.Column(1).width = 3480;  // 60 more than the smallest
    grid.Column(2).width = 1200;  // 20 more
    EXPECT_EQ(Parameters().InRoom(kSmallest + 40).at(1), 202);
    EXPECT_EQ(Parameters().InRoom(kSmallest + 40).at(2), 70);
}

TEST_F(ColumnWidthsTest, SmallWidthOfTheCatalogueIsRaisedToTheSmallest) {
    grid.Column(0).width = 530;  // 35 pixels
    EXPECT_EQ(Parameters().InRoom(kSmallest).at(0), 48);
}

TEST_F(ColumnWidthsTest, WidthOfTheUserStays) {
    ColumnWidths widths = Parameters();
    widths.SetByUser(1, 300);
    widths.SetByUser(2, 30);
    EXPECT_THAT(widths.InRoom(0), ElementsAre(48, 300, 30, 48, 52, 60, 104, 118, 100, 116, 120));
    // 58 pixels to spare, shared by the weights of the other columns.
    EXPECT_THAT(widths.InRoom(1096 + 58), ElementsAre(48, 300, 30, 50, 54, 62, 116, 134, 108, 124, 128));
}

TEST_F(ColumnWidthsTest, WidthOfTheUserOutlivesAnotherInstrument) {
    ColumnWidths widths = Parameters();
    widths.SetByUser(1, 300);
    grid.SetRows(40);
    widths.BeginAnew();
    EXPECT_EQ(widths.InRoom(0).at(1), 300);
}

TEST_F(ColumnWidthsTest, WidthOfAColumnThatIsNotThereIsIgnored) {
    ColumnWidths widths = Parameters();
    widths.SetByUser(11, 300);
    EXPECT_EQ(widths.InRoom(0).size(), 11u);
    EXPECT_EQ(SumOf(widths.InRoom(0)), kSmallest);
}

TEST_F(ColumnWidthsTest, SavedWidthsAreRestored) {
    ColumnWidths before = Parameters();
    before.SetByUser(1, 300);
    before.SetByUser(10, 150);
    ColumnWidths after = Parameters();
    after.Restore(before.Save());
    EXPECT_THAT(after.InRoom(0), ElementsAre(48, 300, 60, 48, 52, 60, 104, 118, 100, 116, 150));
}

TEST_F(ColumnWidthsTest, WidthsOfAnotherNumberOfColumnsNeverCount) {
    ColumnWidths widths = Parameters();
    widths.Restore(Stored({300, 300, 300}));
    EXPECT_EQ(SumOf(widths.InRoom(0)), kSmallest);
    widths.SetByUser(10, 150);
    EXPECT_THAT(widths.InRoom(0), ElementsAre(48, 172, 60, 48, 52, 60, 104, 118, 100, 116, 150));
}

TEST_F(ColumnWidthsTest, GarbageIsNotRestored) {
    const QByteArray whole = Stored(QList<qint32>(11, 300));
    const std::vector<QByteArray> kinds = {{},
                                           "garbage",
                                           Stored({300, 300}),
                                           Stored(QList<qint32>(12, 300)),
                                           whole.left(whole.size() - 1),
                                           QByteArray(4, '\xff') + whole};
    for (const QByteArray& saved : kinds) {
        ColumnWidths widths = Parameters();
        widths.Restore(saved);
        EXPECT_EQ(SumOf(widths.InRoom(0)), kSmallest) << saved.toHex().toStdString();
    }
}

TEST_F(ColumnWidthsTest, RestoredWidthsAreKeptWithinReason) {
    QList<qint32> wild(11, 0);
    wild[1] = -300;
    wild[2] = 1'000'000;
    ColumnWidths widths = Parameters();
    widths.Restore(Stored(wild));
    EXPECT_EQ(widths.InRoom(0).at(1), 172);
    EXPECT_EQ(widths.InRoom(0).at(2), 2000);
}

// --- The lists ---

class ListWidthsTest : public ::testing::Test {
  protected:
    Grid grid;

    void Fill(const std::vector<std::vector<Text>>& rows) {
        grid.SetSize(static_cast<int>(rows.size()), static_cast<int>(rows.front().size()));
        for (int row = 0; row < grid.Rows(); ++row) {
            for (int col = 0; col < grid.Cols(); ++col) {
                grid.SetCell(row, col, rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)]);
            }
        }
    }

    // Whether the text stands whole in a cell of that width, eight pixels off both its edges.
    static bool IsWhole(const Text& text, int width, const QFont& font) {
        const QString shown = QString::fromStdU16String(text);
        return QFontMetrics(font).elidedText(shown, Qt::ElideRight, width - 16) == shown;
    }
};

TEST_F(ListWidthsTest, NoTextIsCutOff) {
    Fill({{u"序号", u"协议类型", u"芯片", u"仪表名称以及说明文字"},
          {u"001 ", u"TQ仪表协议", u"", u"TQ智能数字/光柱显示控制仪"},
          {u"002 ", u"ModBus-RTU协议-标准流量表", u"", u"甲"}});
    const std::vector<int> widths = ColumnWidths(grid, 1, kWindowFaces[0].layout).InRoom(0);
    for (int row = 0; row < grid.Rows(); ++row) {
        const QFont font = row == 0 ? Theme::CaptionFont() : Theme::UiFont();
        for (int col = 0; col < grid.Cols(); ++col) {
            const Text& text = grid.Cell(row, col);
            EXPECT_TRUE(IsWhole(text, widths[static_cast<std::size_t>(col)], font)) << ToUtf8(text);
        }
    }
}

TEST_F(ListWidthsTest, ShortTextsLeaveTheSmallestWidth) {
    Fill({{u"", u"甲", u""}, {u"1", u"", u"乙"}});
    EXPECT_THAT(ColumnWidths(grid, 1, kWindowFaces[0].layout).InRoom(0), Each(48));
}

TEST_F(ListWidthsTest, VeryLongTextDoesNotTakeTheWholeList) {
    Fill({{u"", u""}, {u"", Text(200, u'甲')}});
    EXPECT_EQ(ColumnWidths(grid, 2, kWindowFaces[0].layout).InRoom(0).at(1), 360);
}

TEST_F(ListWidthsTest, SpareWidthIsSharedBySidesOfTheNumber) {
    Fill({{u"", u"", u""}});
    EXPECT_THAT(ColumnWidths(grid, 1, kWindowFaces[0].layout).InRoom(48 * 3 + 100), ElementsAre(48, 98, 98));
}

TEST_F(ListWidthsTest, OtherTextsAreMeasuredAnew) {
    Fill({{u"", u"甲"}});
    ColumnWidths widths(grid, 1, kWindowFaces[0].layout);
    Fill({{u"", u"TQ智能数字/光柱显示控制仪"}});
    widths.BeginAnew();
    EXPECT_THAT(widths.InRoom(0).at(1), Ge(100));
}

}  // namespace
}  // namespace commtest::testing
