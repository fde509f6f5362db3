#include "window/conversion_pane.h"

#include <gtest/gtest.h>

#include <QTest>

#include "window/grid_view_bench.h"

namespace commtest::testing {
namespace {

class ConversionPaneTest : public GridViewTest {
  protected:
    ConversionPane pane{bench.binder, bench.theme, nullptr};

    ConversionPaneTest() {
        QObject::connect(view, &GridView::Explained, &pane, &ConversionPane::NameRow);
        form.MeterCodeText = u"11010101";
        grid.SetCell(3, 7, u"C800");
        grid.SetCell(4, 6, u"6400");
    }

    std::string Explanation() const { return ToUtf8(form.ConCommString[0].WholeText()); }
};

TEST_F(ConversionPaneTest, ClickNamesTheParameterThatIsExplained) {
    EXPECT_EQ(pane.Title().toStdString(), "");
    Click(3, 7);
    EXPECT_EQ(pane.Title().toStdString(), "参数3 0123");
    Click(2, 7);  // there is nothing to explain
    EXPECT_EQ(pane.Title().toStdString(), "参数3 0123");
}

TEST_F(ConversionPaneTest, F2AndEnterExplainAsAClickDoes) {
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        form.ConCommString[0].Clear();
        grid.Select(4, 6);
        Look();
        Key(key);
        EXPECT_NE(Explanation().find("6400"), std::string::npos) << key;
        EXPECT_EQ(pane.Title().toStdString(), "参数4 0123") << key;
    }
}

TEST_F(ConversionPaneTest, AnotherInstrumentEmptiesTitleAndText) {
    Click(3, 7);
    ASSERT_NE(Explanation(), "");
    bench.session.Choose(kNativeProtocol, u"仪表甲");
    Look();
    EXPECT_EQ(pane.Title().toStdString(), "");
    EXPECT_EQ(Explanation(), "");
}

}  // namespace
}  // namespace commtest::testing
