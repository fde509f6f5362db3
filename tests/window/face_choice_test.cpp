#include "window/face_choice.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QTemporaryDir>

#include "window/note_bar.h"
#include "window/tool_bar.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class FaceChoice : public ::testing::Test {
  protected:
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    ViewBench bench{kEnglishFace};
    NoteBar notes{bench.theme};
    std::unique_ptr<ToolBar> toolBar;

    void Open() {
        toolBar = std::make_unique<ToolBar>(bench.binder, bench.theme, nullptr);
        AddFaceChoice(bench.Form(), *toolBar, settings, notes);
    }
    QAction* Entry(const QString& caption) {
        const QMenu* menu = toolBar->Button(10).menu()->actions().last()->menu();
        for (QAction* entry : menu->actions()) {
            if (entry->text() == caption) return entry;
        }
        return nullptr;
    }
};

TEST_F(FaceChoice, StandsAmongTheToolsInBothLanguages) {
    Open();
    EXPECT_EQ(toolBar->Button(10).menu()->actions().last()->text().toStdString(), "界面语言 Language");
}

TEST_F(FaceChoice, ShowsTheFaceThatIsShownWhereNoneIsRemembered) {
    Open();
    EXPECT_TRUE(Entry("English")->isChecked());
    EXPECT_FALSE(Entry("中文")->isChecked());
}

TEST_F(FaceChoice, IsRememberedAndSaysThatItComesWithTheNextStart) {
    Open();
    Entry("中文")->trigger();
    EXPECT_EQ(settings.value("Window/Face").toString().toStdString(), "chinese");
    EXPECT_EQ(RememberedFace(settings).name.toString().toStdString(), "chinese");
    EXPECT_EQ(notes.Text().toStdString(), "下次启动时的界面语言：中文");
    EXPECT_TRUE(Entry("中文")->isChecked());
    Open();
    EXPECT_TRUE(Entry("中文")->isChecked());
}

TEST_F(FaceChoice, UnknownOneIsTheChinese) {
    settings.setValue("Window/Face", "norse");
    EXPECT_EQ(RememberedFace(settings).name.toString().toStdString(), "chinese");
    EXPECT_EQ(FindFace(u"norse"), nullptr);
}

}  // namespace
}  // namespace commtest::testing
