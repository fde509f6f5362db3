#include "window/window_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <optional>

#include "support/native_instrument.h"
#include "window/theme.h"

namespace commtest::testing {
namespace {

class WindowDialogsTest : public ::testing::Test {
  protected:
    WindowDialogs dialogs;

    // The detail of the box of an error.
    std::string DetailOfError(int number) {
        std::string detail;
        User<QMessageBox>([&](QMessageBox& box) {
            detail = box.informativeText().toStdString();
            box.accept();
        });
        dialogs.ShowError(number, u"实时错误");
        return detail;
    }
    // The question that comes up is answered; without an answer it is cancelled.
    void Ask(const Text& title, const std::optional<QString>& answer) {
        User<QInputDialog>([answer](QInputDialog& box) {
            box.setTextValue(answer.value_or(""));
            answer ? box.accept() : box.reject();
        });
        (void)dialogs.AskText(title, u"请输入", u"1");
    }

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

TEST_F(WindowDialogsTest, ErrorSaysWhatToDo) {
    EXPECT_EQ(DetailOfError(13), "有一处所填的不是数值，请检查后重试");
    EXPECT_EQ(DetailOfError(6), "有一个数值超出了范围，请检查所填的数值后重试");
    EXPECT_EQ(DetailOfError(53), "程序文件夹里没有这个文件，请放回后重试");
    EXPECT_EQ(DetailOfError(76), "程序文件夹里没有所要的文件夹，请建立后重试");
    EXPECT_EQ(DetailOfError(3146), "请检查目录文件是否完好，有没有被其它程序占用");
    for (const int number : {5, 9, 52, 62, 1}) EXPECT_NE(DetailOfError(number), "") << number;
}

TEST_F(WindowDialogsTest, ErrorNamesTheFieldOfTheSessionThatIsAtFault) {
    NativeBench session;
    MainForm& form = session.Form();
    dialogs.SetSession(form);
    EXPECT_EQ(DetailOfError(13), "有一处所填的不是数值，请检查后重试");
    form.ConDelayTime.Set(u"1x");
    EXPECT_EQ(DetailOfError(13), "通讯间隔 1x 不是数值。请更正后重试");
    form.ConDelayTime.Set(u"99999999999");
    EXPECT_EQ(DetailOfError(6), "通讯间隔 99999999999 超出范围。请改为较小的数值后重试");
    form.ConDelayTime.Set(u"");
    EXPECT_EQ(DetailOfError(13), "通讯间隔 没有填写。请更正后重试");
    form.PortName().Set(u"ttyX");
    EXPECT_EQ(DetailOfError(13), "串口号 ttyX 不是串口。请更正后重试");
    form.InputText.Set(u"abc");
    EXPECT_EQ(DetailOfError(13), "串口号 ttyX 不是串口。请更正后重试");
    form.InputText.SetVisible(true);
    EXPECT_EQ(DetailOfError(13), "修改值 abc 不是数值。请更正后重试");
}

TEST_F(WindowDialogsTest, ErrorBehindACancelledQuestionSaysSoOnce) {
    Ask(u"仪表数量", std::nullopt);
    EXPECT_EQ(DetailOfError(13), "仪表数量 已取消，没有启用。需要时请重新勾选");
    EXPECT_EQ(DetailOfError(13), "有一处所填的不是数值，请检查后重试");
}

TEST_F(WindowDialogsTest, ErrorBehindAnAnswerThatIsNoNumberNamesIt) {
    Ask(u"第 2 台仪表地址", "1a");
    EXPECT_EQ(DetailOfError(13), "第 2 台仪表地址 1a 不是数值。请更正后重试");
    Ask(u"仪表数量", "3");
    EXPECT_EQ(DetailOfError(13), "有一处所填的不是数值，请检查后重试");
}

TEST_F(WindowDialogsTest, BoxIsAtLeast560WideAndAsWideAsItsTitle) {
    std::vector<int> widths;
    const auto measure = [&](QWidget& box) {
        widths.push_back(box.width());
        static_cast<QDialog&>(box).reject();
    };
    User<QMessageBox>([&](QMessageBox& box) { measure(box); });
    dialogs.ShowMessage(u"请等待", {});
    User<QMessageBox>([&](QMessageBox& box) { measure(box); });
    (void)dialogs.AskYesNo(u"确定吗？");
    User<QInputDialog>([&](QInputDialog& box) { measure(box); });
    (void)dialogs.AskText(u"仪表数量", u"台数", u"1");
    for (const int width : widths) EXPECT_GE(width, 560);
    int title = 0;
    User<QInputDialog>([&](QInputDialog& box) {
        title = box.fontMetrics().horizontalAdvance(box.windowTitle());
        measure(box);
    });
    (void)dialogs.AskText(Text(80, u'仪'), u"台数", u"1");
    EXPECT_GT(widths.back(), title);
}

TEST_F(WindowDialogsTest, SignIsOfTheProjectAndWarnsOnlyOfFailures) {
    Theme theme(Theme::Choice::Light);
    dialogs.SetTheme(theme);
    QPixmap sign;
    const auto look = [&] {
        User<QMessageBox>([&](QMessageBox& box) {
            sign = box.iconPixmap();
            box.reject();
        });
    };
    const auto isIn = [&](const QColor& ink) {
        const QImage image = sign.toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == ink) return true;
            }
        }
        return false;
    };
    look();
    dialogs.ShowError(13, u"实时错误");
    EXPECT_EQ(sign.deviceIndependentSize(), QSizeF(32, 32));
    EXPECT_TRUE(isIn(kLightTokens.warn));
    look();
    dialogs.ShowMessage(u"系统串口被占用,无法打开！", {});
    EXPECT_TRUE(isIn(kLightTokens.warn));
    look();
    dialogs.ShowNotice({Notice::Kind::PortLost, u"设备已断开"});
    EXPECT_TRUE(isIn(kLightTokens.warn));
    look();
    dialogs.ShowNotice({Notice::Kind::EndOfFile, u"ErrorComm.ini"});
    EXPECT_TRUE(isIn(kLightTokens.accent));
    look();
    dialogs.ShowAdvice(u"请再操作一次");
    EXPECT_TRUE(isIn(kLightTokens.accent));
    look();
    (void)dialogs.AskYesNo(u"确定吗？");
    EXPECT_TRUE(isIn(kLightTokens.accent));
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
        for (const auto* button : box.findChildren<QPushButton*>()) EXPECT_TRUE(button->icon().isNull());
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

TEST_F(WindowDialogsTest, QuestionForTheNoteOfACaptureNamesTheInstrument) {
    NativeBench session;
    dialogs.SetSession(session.Form());
    std::string prompt;
    std::string detail;
    const auto read = [&](QInputDialog& box) {
        prompt = box.labelText().toStdString();
        detail = box.findChild<QLineEdit*>()->accessibleDescription().toStdString();
        const QString shown = QString::fromStdString(detail);
        for (QLabel* label : box.findChildren<QLabel*>()) {
            if (!detail.empty() && label->text() == shown) detail += ", shown";
        }
        box.reject();
    };
    User<QInputDialog>(read);
    (void)dialogs.AskText(u"数据说明", u"请输入采集数据说明,以便今后区分", {});
    EXPECT_EQ(prompt, "请输入采集数据说明,以便今后区分");
    EXPECT_EQ(detail, "仪表：仪表甲，TQ仪表协议, shown");
    User<QInputDialog>(read);
    (void)dialogs.AskText(u"仪表数量", u"台数", u"1");
    EXPECT_EQ(detail, "");
}

TEST_F(WindowDialogsTest, CancelledEntryIsEmpty) {
    User<QInputDialog>([](QInputDialog& box) { box.reject(); });
    EXPECT_EQ(dialogs.AskText(u"时间间隔", u"分钟", u"1"), u"");
}

}  // namespace
}  // namespace commtest::testing
