#include <gtest/gtest.h>

#include <QCoreApplication>
#include <memory>

namespace {

// The toolkit's classes need an application object around all tests of this program.
class ApplicationEnvironment : public ::testing::Environment {
  public:
    void SetUp() override { application_ = std::make_unique<QCoreApplication>(argumentCount_, arguments_); }
    void TearDown() override { application_.reset(); }

  private:
    int argumentCount_ = 1;
    char name_[16] = "host_qt_tests";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QCoreApplication> application_;
};

[[maybe_unused]] const auto* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
