#include "window/spoken_words.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <memory>

#include "host_qt/words.h"

namespace commtest::testing {
namespace {

const WindowFace& kChinese = *FindFace(u"chinese");
const WindowFace& kEnglish = *FindFace(u"english");

std::string FirstEntryOf(QMenu* made) {
    const std::unique_ptr<QMenu> menu(made);
    return menu->actions().value(0)->text().section(u'\t', 0, 0).toStdString();
}

TEST(SpokenWordsOfTheToolkit, MenusOfFieldsAndPanesAreChinese) {
    const SpokenWords words(kChinese);
    QLineEdit field;
    EXPECT_EQ(FirstEntryOf(field.createStandardContextMenu()), "撤消(&U)");
    QPlainTextEdit pane;
    pane.setReadOnly(true);
    EXPECT_EQ(FirstEntryOf(pane.createStandardContextMenu()), "复制(&C)");
}

TEST(SpokenWordsOfTheToolkit, MenusOfTheEnglishFaceAreEnglish) {
    const SpokenWords words(kEnglish);
    QLineEdit field;
    EXPECT_EQ(FirstEntryOf(field.createStandardContextMenu()), "&Undo");
}

TEST(SpokenWordsOfTheWindow, AreThoseOfTheFaceWhileItSpeaks) {
    EXPECT_EQ(Words::tr("下次启动时的界面语言：%1").toStdString(), "下次启动时的界面语言：%1");
    {
        const SpokenWords words(kEnglish);
        EXPECT_EQ(Words::tr("下次启动时的界面语言：%1").toStdString(), "Language from the next start on: %1");
    }
    const SpokenWords words(kChinese);
    EXPECT_EQ(Words::tr("下次启动时的界面语言：%1").toStdString(), "下次启动时的界面语言：%1");
}

}  // namespace
}  // namespace commtest::testing
