#include "window/toolkit_texts.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTranslator>
#include <memory>

namespace commtest::testing {
namespace {

std::string FirstEntryOf(QMenu* made) {
    const std::unique_ptr<QMenu> menu(made);
    return menu->actions().value(0)->text().section(u'\t', 0, 0).toStdString();
}

TEST(ToolkitTexts, MenusOfFieldsAndPanesAreChinese) {
    LoadToolkitTexts();
    QLineEdit field;
    EXPECT_EQ(FirstEntryOf(field.createStandardContextMenu()), "撤消(&U)");
    QPlainTextEdit pane;
    pane.setReadOnly(true);
    EXPECT_EQ(FirstEntryOf(pane.createStandardContextMenu()), "复制(&C)");
    delete qApp->findChild<QTranslator*>();
}

}  // namespace
}  // namespace commtest::testing
