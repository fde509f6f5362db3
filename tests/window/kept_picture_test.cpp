#include "window/kept_picture.h"

#include <gtest/gtest.h>

#include "window/grid_view_bench.h"

namespace commtest::testing {
namespace {

class KeptPictureTest : public GridViewTest {
  protected:
    KeptPictureTest() { KeepPictureOverFailures(form); }

    void ChooseInstrument(const Text& name) {
        bench.binder.Event([&] {
            form.InstrumentList().Set(name);
            RunIfSet(form.InstrumentList().Click);
        });
    }
};

TEST_F(KeptPictureTest, InstrumentThatCannotBeReadLeavesTheFormerOne) {
    ChooseInstrument(kLongInstrument);
    const std::size_t limits = form.Limits.size();
    const std::string code = ToUtf8(form.MeterCodeText);
    form.outside.store.Close();
    ChooseInstrument(u"仪表甲");
    EXPECT_EQ(view->model()->rowCount(), kParameters);
    EXPECT_EQ(Shown(1, 1), "参数1");
    EXPECT_EQ(Shown(kParameters, 0), "040 ");
    EXPECT_EQ(ToUtf8(form.InstrumentName()), "仪表乙");
    EXPECT_EQ(form.Limits.size(), limits);
    EXPECT_EQ(ToUtf8(form.MeterCodeText), code);
    EXPECT_TRUE(grid.Redraw);
    EXPECT_EQ(bench.session.dialogs.Shown.size(), 1u);
}

TEST_F(KeptPictureTest, FirstInstrumentThatCannotBeReadLeavesTheEmptyGrid) {
    form.outside.store.Close();
    ChooseInstrument(u"仪表甲");
    EXPECT_EQ(view->model()->rowCount(), 15);
    EXPECT_EQ(Shown(1, 0), "001 ");
    EXPECT_EQ(Shown(15, 0), "015 ");
    EXPECT_EQ(ToUtf8(grid.Cell(0, 10)), "修改值");
    EXPECT_EQ(Shown(1, 1), "");
}

}  // namespace
}  // namespace commtest::testing
