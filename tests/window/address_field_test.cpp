#include "window/address_field.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QVBoxLayout>

#include "window/note_bar.h"
#include "window/text_spin_box.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class AddressFieldTest : public ::testing::Test {
  protected:
    ViewBench bench;
    QWidget window;
    NoteBar notes{bench.theme};
    TextSpinBox* field = MakeAddressField(bench.binder, notes);
    QLineEdit* other = new QLineEdit;

    AddressFieldTest() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(other);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        bench.Form().ConMeterAddr.Set(u"7");
        bench.binder.Look();
        field->setFocus();
        field->selectAll();
    }

    void Type(const char* keys) { QTest::keyClicks(field, keys); }
    void EmptyIt() { QTest::keyClick(field, Qt::Key_Delete); }
    std::string Address() { return ToUtf8(bench.Form().ConMeterAddr.Value()); }
    bool HasBox() { return !bench.session.dialogs.Shown.empty(); }
};

TEST_F(AddressFieldTest, EmptyAddressWhileTypingIsNotHandedOver) {
    EmptyIt();
    EXPECT_EQ(field->Text().toStdString(), "");
    EXPECT_EQ(Address(), "7");
    Type("12");
    EXPECT_EQ(Address(), "12");
    EXPECT_FALSE(HasBox());
}

TEST_F(AddressFieldTest, LeftEmptyTheFormerAddressComesBackWithANote) {
    EmptyIt();
    other->setFocus();
    EXPECT_EQ(field->Text().toStdString(), "7");
    EXPECT_EQ(Address(), "7");
    EXPECT_EQ(notes.Text().toStdString(), "仪表地址没有填写，仍为 7");
    EXPECT_FALSE(HasBox());
}

TEST_F(AddressFieldTest, BlanksAreNoAddressEither) {
    Type("  ");
    other->setFocus();
    EXPECT_EQ(field->Text().toStdString(), "7");
    EXPECT_FALSE(HasBox());
}

TEST_F(AddressFieldTest, FormerAddressComesBackWhenTheSessionStarts) {
    EmptyIt();
    bench.session.Start();
    bench.binder.Look();
    EXPECT_EQ(field->Text().toStdString(), "7");
}

TEST_F(AddressFieldTest, LeftWithAnAddressSaysNothing) {
    Type("9");
    other->setFocus();
    EXPECT_EQ(Address(), "9");
    EXPECT_EQ(notes.Text().toStdString(), "");
}

TEST_F(AddressFieldTest, AddressThatIsNoNumberIsRefusedAtOnce) {
    Type("1x");
    ASSERT_EQ(bench.session.dialogs.Shown.size(), 1u);
    EXPECT_EQ(bench.session.dialogs.Shown[0].number, 13);
}

}  // namespace
}  // namespace commtest::testing
