#include "window/window_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

namespace commtest::testing {
namespace {

class WindowDialogsTest : public ::testing::Test {
  protected:
    WindowDialogs dialogs;

    // What the user does with the box that comes up.
    template <typename Box>
    void User(std::function<void(Box&)> act) {
        QTimer::singleShot(0, [act] {
            auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            act(*box);
        });
    }
};

TEST_F(WindowDialogsTest, MessageHasItsDetailBeneath) {
    std::string text;
    std::string detail;
    User<QMessageBox>([&](QMessageBox& box) {
        text = box.text().toStdString();
        detail = box.informativeText().toStdString();
        box.accept();
    });
    dialogs.ShowMessage(u"系统串口被占用,无法打开！", u"设备不存在");
    EXPECT_EQ(text, "系统串口被占用,无法打开！");
    EXPECT_EQ(detail, "设备不存在");
}

TEST_F(WindowDialogsTest, BoxBelongsToTheWindowInUse) {
    QWidget main;
    QWidget inUse;
    dialogs.SetWindow(&main);
    main.show();
    inUse.show();
    inUse.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&inUse));
    QWidget* owner = nullptr;
    User<QMessageBox>([&](QMessageBox& box) {
        owner = box.parentWidget();
        box.accept();
    });
    dialogs.ShowMessage(u"请等待", {});
    EXPECT_EQ(owner, &inUse);
}

TEST_F(WindowDialogsTest, EventsGoOnWhileABoxStands) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] {
        if (++ticks == 5) qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->accept();
    });
    timer.start(1);
    dialogs.ShowMessage(u"请等待", {});
    EXPECT_EQ(ticks, 5);
}

TEST_F(WindowDialogsTest, ErrorShowsItsStandardMessage) {
    std::string text;
    User<QMessageBox>([&](QMessageBox& box) {
        text = box.text().toStdString();
        box.accept();
    });
    dialogs.ShowError(9, u"实时错误 '9':\r\n\r\n下标越界");
    EXPECT_EQ(text, "实时错误 '9':\r\n\r\n下标越界");
}

TEST_F(WindowDialogsTest, QuestionIsAnsweredByItsButtons) {
    User<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    EXPECT_TRUE(dialogs.AskYesNo(u"确定吗？"));
    User<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    EXPECT_FALSE(dialogs.AskYesNo(u"确定吗？"));
}

TEST_F(WindowDialogsTest, EscapeIsNo) {
    User<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(dialogs.AskYesNo(u"确定吗？"));
}

TEST_F(WindowDialogsTest, EntryStartsWithTheProposal) {
    std::string proposal;
    std::string title;
    std::string prompt;
    User<QInputDialog>([&](QInputDialog& box) {
        proposal = box.textValue().toStdString();
        title = box.windowTitle().toStdString();
        prompt = box.labelText().toStdString();
        box.setTextValue("12");
        box.accept();
    });
    EXPECT_EQ(dialogs.AskText(u"仪表数量", u"请输入仪表的总台数", u"3"), u"12");
    EXPECT_EQ(proposal, "3");
    EXPECT_EQ(title, "仪表数量");
    EXPECT_EQ(prompt, "请输入仪表的总台数");
}

TEST_F(WindowDialogsTest, CancelledEntryIsEmpty) {
    User<QInputDialog>([](QInputDialog& box) { box.reject(); });
    EXPECT_EQ(dialogs.AskText(u"时间间隔", u"分钟", u"1"), u"");
}

}  // namespace
}  // namespace commtest::testing
