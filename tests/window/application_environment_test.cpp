#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QTemporaryDir>
#include <memory>

#include "window/theme.h"

namespace {

// An application on a screen in memory, of 1920x1080, around all tests of this program, with run-time and
// settings folders of its own, and with the fonts of a configuration in fonts/: WINDOW_TEST_FONTS, or those
// of the package.
class ApplicationEnvironment : public ::testing::Environment {
  public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" SCREEN);
        for (const char* variable : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            qputenv(variable, folder_.path().toUtf8());
        qputenv("FONTCONFIG_FILE", qEnvironmentVariable("WINDOW_TEST_FONTS", PACKAGED_FONT).toUtf8());
        application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
    }
    void TearDown() override { application_.reset(); }

  private:
    QTemporaryDir folder_;
    std::unique_ptr<QApplication> application_;
    int argumentCount_ = 1;
    char name_[16] = "window_tests";
    char* arguments_[2] = {name_, nullptr};
};

[[maybe_unused]] const auto* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

TEST(Fonts, AreThoseOfTheConfigurationAndNoneOfTheMachine) {
    const bool isPackaged = qgetenv("FONTCONFIG_FILE").endsWith("packaged_font.conf");
    const QString chinese = isPackaged ? "WenQuanYi Micro Hei" : "Noto Sans CJK SC";
    const QString other = isPackaged ? "Noto Sans CJK SC" : "WenQuanYi Micro Hei";
    EXPECT_EQ(QFontInfo(commtest::Theme::UiFont()).family().toStdString(), chinese.toStdString());
    EXPECT_EQ(QFontInfo(commtest::Theme::MonoFont()).family().toStdString(), "DejaVu Sans Mono");
    EXPECT_TRUE(QFontDatabase::hasFamily(chinese));
    EXPECT_FALSE(QFontDatabase::hasFamily(other));
}

}  // namespace
