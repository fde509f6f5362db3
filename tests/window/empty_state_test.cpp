#include "window/empty_state.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class EmptyStateTest : public ::testing::Test {
  protected:
    Theme theme{Theme::Choice::Light};
    EmptyState state{"history", {}, theme, nullptr};
    std::string pressed;

    EmptyStateTest() {
        state.resize(400, 200);
        state.show();
    }

    EmptyWords::Action Action(const char* caption) {
        return {caption, [this, caption] { pressed = caption; }};
    }
    QList<QPushButton*> Visible() const {
        QList<QPushButton*> visible;
        for (auto* button : state.findChildren<QPushButton*>()) {
            if (button->isVisible()) visible += button;
        }
        return visible;
    }
    QStringList Captions() const {
        QStringList captions;
        for (const QPushButton* button : Visible()) captions += button->text();
        return captions;
    }
};

TEST_F(EmptyStateTest, IsHeardByItsWords) {
    state.Say({"没有录制的数据", "勾选 数据采集 并开始通讯"});
    EXPECT_EQ(state.accessibleName().toStdString(), "没有录制的数据");
    EXPECT_EQ(state.accessibleDescription().toStdString(), "勾选 数据采集 并开始通讯");
}

TEST_F(EmptyStateTest, HasAsManyActionsAsItsWords) {
    EXPECT_EQ(Captions(), QStringList());
    state.Say({"没有录制的数据", "", {Action("开始采集"), Action("导入录制")}});
    EXPECT_EQ(Captions(), QStringList({"开始采集", "导入录制"}));
    state.layout()->activate();
    EXPECT_LT(Visible()[0]->geometry().right(), Visible()[1]->geometry().left());
    EXPECT_EQ(Visible()[0]->y(), Visible()[1]->y());
    Visible()[1]->click();
    EXPECT_EQ(pressed, "导入录制");
    state.Say({"目录里没有仪表", "", {Action("导入地址")}});
    EXPECT_EQ(Captions(), QStringList({"导入地址"}));
    Visible()[0]->click();
    EXPECT_EQ(pressed, "导入地址");
    state.Say({"没有错误记录", ""});
    EXPECT_EQ(Captions(), QStringList());
}

TEST_F(EmptyStateTest, ActionMayChangeTheWords) {
    state.Say({"未勾选 保存错误记录", "", {{"勾选", [this] { state.Say({"没有错误记录", ""}); }}}});
    Visible()[0]->click();
    EXPECT_EQ(state.accessibleName().toStdString(), "没有错误记录");
    EXPECT_EQ(Captions(), QStringList());
}

}  // namespace
}  // namespace commtest::testing
