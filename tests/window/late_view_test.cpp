#include "window/late_view.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace commtest {
namespace {

// Two fields in a line, made late, between two others.
class LateViewTest : public ::testing::Test {
  protected:
    LateViewTest() {
        place->hide();
        layout->addWidget(first);
        layout->addWidget(place);
        layout->addWidget(last);
        window.show();
    }

    QWidget* Make(QWidget* parent) {
        ++made;
        auto* view = new QWidget(parent);
        auto* line = new QHBoxLayout(view);
        line->addWidget(address = new QSpinBox);
        line->addWidget(name = new QLineEdit);
        return view;
    }

    // The field that takes the focus behind another one, by the key Tab.
    static QWidget* Behind(QWidget* field) {
        do field = field->nextInFocusChain();
        while (field->focusPolicy() == Qt::NoFocus || field->focusProxy() != nullptr || !field->isVisible());
        return field;
    }

    int made = 0;
    QSpinBox* address = nullptr;
    QLineEdit* name = nullptr;
    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
    QLineEdit* first = new QLineEdit(&window);
    LateView* place = new LateView([this](QWidget* parent) { return Make(parent); }, &window);
    QLineEdit* last = new QLineEdit(&window);
};

TEST_F(LateViewTest, IsMadeAtItsFirstShowing) {
    EXPECT_EQ(made, 0);
    place->show();
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(name->isVisible());
    EXPECT_EQ(name->parentWidget()->size(), place->size());
    place->hide();
    EXPECT_FALSE(name->isVisible());
    place->show();
    EXPECT_EQ(made, 1);
}

TEST_F(LateViewTest, StandsInTheTabOrderWhereItsPlaceIs) {
    EXPECT_EQ(Behind(first), last);
    place->show();
    EXPECT_EQ(Behind(first), address);
    EXPECT_EQ(Behind(address), name);
    EXPECT_EQ(Behind(name), last);
    EXPECT_EQ(place->focusPolicy(), Qt::NoFocus);
}

TEST_F(LateViewTest, FieldAloneStandsInTheTabOrderWhereItsPlaceIs) {
    QLineEdit* field = nullptr;
    auto* late = new LateView([&field](QWidget* parent) { return field = new QLineEdit(parent); }, &window);
    auto* end = new QLineEdit(&window);
    end->show();
    late->show();
    EXPECT_EQ(Behind(last), field);
    EXPECT_EQ(Behind(field), end);
}

TEST_F(LateViewTest, PageIsMadeWhenItIsChosen) {
    auto* pages = new QStackedWidget(&window);
    layout->addWidget(pages);
    pages->addWidget(new QLineEdit);
    pages->addWidget(new LateView([this](QWidget* parent) { return Make(parent); }, pages));
    pages->show();
    EXPECT_EQ(made, 0);
    pages->setCurrentIndex(1);
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(name->isVisible());
}

}  // namespace
}  // namespace commtest
