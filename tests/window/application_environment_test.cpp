#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <memory>

namespace {

// An application without a screen around all tests of this program, with run-time and settings folders of its
// own.
class ApplicationEnvironment : public ::testing::Environment {
  public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        for (const char* variable : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            qputenv(variable, folder_.path().toUtf8());
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

}  // namespace
