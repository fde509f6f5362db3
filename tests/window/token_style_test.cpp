#include "window/token_style.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <memory>

#include "window/fact_table.h"
#include "window/look.h"
#include "window/main_window.h"
#include "window/pieces.h"
#include "window/text_spin_box.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

constexpr QRgb kWindow = 0xFFF3F5F6;
constexpr QRgb kSurface = 0xFFFFFFFF;
constexpr QRgb kHeader = 0xFFEBEFF1;
constexpr QRgb kHover = 0xFFE4EAED;
constexpr QRgb kRow = 0xFFE8F2F6;
constexpr QRgb kTint = 0xFFDDEFF4;
constexpr QRgb kLine = 0xFFDAE1E5;
constexpr QRgb kBorder = 0xFF808F99;
constexpr QRgb kText = 0xFF17232B;
constexpr QRgb kText2 = 0xFF4F5F69;
constexpr QRgb kDisabled = 0xFF8E9BA3;
constexpr QRgb kAccent = 0xFF0B6B88;
constexpr QRgb kAccentHover = 0xFF095A73;
constexpr QRgb kOnAccent = 0xFFFFFFFF;
constexpr QRgb kWarn = 0xFFB42318;
constexpr QRgb kScroll = 0xFFB4C0C7;
constexpr QRgb kDarkAccent = 0xFF5CC3E0;
constexpr QRgb kDarkSurface = 0xFF13191D;

std::string Hex(QRgb colour) { return QString::number(colour, 16).toStdString(); }

class TokenStyleTest : public ::testing::Test {
  protected:
    Theme theme{Theme::Choice::Light};
    QWidget window;
    QWidget other{&window};

    TokenStyleTest() {
        window.resize(420, 240);
        other.setFocusPolicy(Qt::StrongFocus);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
    }

    // As large as it wants to be, or as it is told.
    template <typename Widget>
    Widget& Put(Widget* widget, QSize size = {}) {
        widget->setParent(&window);
        widget->show();
        widget->setGeometry(QRect(QPoint(20, 20), size.isValid() ? size : widget->sizeHint()));
        other.setFocus();
        widget->setAttribute(Qt::WA_UnderMouse, false);
        return *widget;
    }

    static QImage PictureOf(QWidget& widget) {
        QApplication::processEvents();
        const QWidget* window = widget.window();
        return const_cast<QWidget*>(window)
            ->grab(QRect(widget.mapTo(window, QPoint(0, 0)), widget.size()))
            .toImage();
    }

    // A pixel; from the right or from below if it is negative.
    static std::string At(QWidget& widget, int x, int y) {
        const QImage picture = PictureOf(widget);
        return Hex(picture.pixel(x < 0 ? picture.width() + x : x, y < 0 ? picture.height() + y : y));
    }

    static int CountOf(QWidget& widget, QRgb colour) {
        const QImage picture = PictureOf(widget);
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) count += picture.pixel(x, y) == colour;
        }
        return count;
    }

    static void PointAt(QWidget& widget, bool isOver = true) {
        widget.setAttribute(Qt::WA_UnderMouse, isOver);
        widget.update();
    }

    static QFont TallFont() {
        QFont font = Theme::UiFont();
        font.setPixelSize(40);
        return font;
    }
};

// --- Fields ---

TEST_F(TokenStyleTest, FieldHasTheAccentRingWithFocus) {
    auto& field = Put(new QLineEdit);
    EXPECT_EQ(At(field, 40, 0), Hex(kBorder));
    EXPECT_EQ(At(field, 40, 1), Hex(kSurface));
    field.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(At(field, 40, 0), Hex(kAccent));
    EXPECT_EQ(At(field, 40, 1), Hex(kAccent));
    EXPECT_EQ(At(field, 40, -1), Hex(kAccent));
    EXPECT_EQ(At(field, 0, 14), Hex(kAccent));
    EXPECT_EQ(At(field, 40, 2), Hex(kSurface));
}

TEST_F(TokenStyleTest, FieldThatCannotBeUsedIsOutlinedByALine) {
    for (QWidget* field : std::initializer_list<QWidget*>{new QLineEdit, new QComboBox, new TextSpinBox}) {
        Put(field, {100, 28}).setEnabled(false);
        EXPECT_EQ(At(*field, 40, 0), Hex(kLine)) << field->metaObject()->className();
        delete field;
    }
}

TEST_F(TokenStyleTest, TextOfAFieldStaysWhereItIsWithTheFocus) {
    auto& field = Put(new QLineEdit("HHH"));
    field.setReadOnly(true);
    const QImage before = PictureOf(field).copy(4, 4, 60, 20);
    field.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(PictureOf(field).copy(4, 4, 60, 20), before);
}

TEST_F(TokenStyleTest, HeightsDependOnNoFont) {
    auto* compact = new QLineEdit;
    SetLook(*compact, Look::Compact);
    auto* tool = new QToolButton;
    SetLook(*tool, Look::ToolBar);
    const std::initializer_list<std::pair<QWidget*, int>> heights = {{new QLineEdit("Tj"), 28},
                                                                     {compact, 24},
                                                                     {new QComboBox, 28},
                                                                     {new TextSpinBox, 28},
                                                                     {new QPushButton("Tj"), 28},
                                                                     {MakeLineAction("Tj"), 24},
                                                                     {tool, 32}};
    QWidget form(&window);
    auto* layout = new QVBoxLayout(&form);
    for (const auto& [widget, height] : heights) {
        widget->setFont(TallFont());
        layout->addWidget(widget);
    }
    form.resize(200, 800);
    form.show();
    layout->activate();
    for (const auto& [widget, height] : heights)
        EXPECT_EQ(widget->height(), height) << widget->metaObject()->className();
}

TEST_F(TokenStyleTest, RefusedListIsOutlinedAsAFailure) {
    auto& list = Put(new QComboBox, {100, 28});
    EXPECT_EQ(At(list, 40, 0), Hex(kBorder));
    SetLook(list, Look::Refused);
    EXPECT_EQ(At(list, 40, 0), Hex(kWarn));
    EXPECT_EQ(At(list, 40, 1), Hex(kWarn));
    list.setFocus();
    EXPECT_EQ(At(list, 40, 0), Hex(kWarn));
}

TEST_F(TokenStyleTest, TextOfAListEndsBeforeItsArrow) {
    auto& list = Put(new QComboBox, {60, 28});
    list.addItem("HHHHHHHHHHHHHHHH");
    QStyleOptionComboBox option;
    option.initFrom(&list);
    const QRect text =
        list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list);
    const QRect arrow =
        list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &list);
    EXPECT_LT(text.right(), arrow.left());
    EXPECT_EQ(arrow.width(), 20);
    const QImage behind = PictureOf(list).copy(40, 4, 4, 20);
    list.setItemText(0, "H");
    EXPECT_EQ(PictureOf(list).copy(40, 4, 4, 20), behind);
}

TEST_F(TokenStyleTest, StepOfANumberIsMarkedUnderThePointer) {
    auto& number = Put(new TextSpinBox, {80, 28});
    EXPECT_EQ(CountOf(number, kHover), 0);
    QHoverEvent over(QEvent::HoverMove, QPointF(70, 5), QPointF(70, 5), QPointF(0, 0));
    PointAt(number);
    QApplication::sendEvent(&number, &over);
    EXPECT_GT(CountOf(number, kHover), 100);
}

TEST_F(TokenStyleTest, ListThatDropsDownIsTintedWhereItStands) {
    QComboBox list(&window);
    list.setEditable(true);
    list.addItems({"H", "H"});
    list.setGeometry(20, 20, 100, 28);
    list.show();
    list.showPopup();
    EXPECT_EQ(list.view()->visualRect(list.model()->index(0, 0)).height(), 24);
    EXPECT_EQ(At(*list.view(), 0, 10), Hex(kBorder));
    EXPECT_EQ(At(*list.view(), 60, 12), Hex(kTint));
    EXPECT_EQ(At(*list.view(), 60, 36), Hex(kSurface));
    list.hidePopup();
}

// --- Buttons ---

TEST_F(TokenStyleTest, ButtonShowsPointerPressAndFocus) {
    auto& button = Put(new QPushButton("甲"));
    EXPECT_EQ(At(button, 30, 0), Hex(kBorder));
    EXPECT_EQ(At(button, 6, 14), Hex(kSurface));
    PointAt(button);
    EXPECT_EQ(At(button, 6, 14), Hex(kHover));
    button.setDown(true);
    EXPECT_EQ(At(button, 6, 14), Hex(kTint));
    EXPECT_EQ(At(button, 30, 0), Hex(kAccent));
    button.setDown(false);
    PointAt(button, false);
    button.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(At(button, 30, 1), Hex(kAccent));
    button.setEnabled(false);
    EXPECT_EQ(At(button, 30, 0), Hex(kLine));
    EXPECT_EQ(CountOf(button, kText), 0);
}

TEST_F(TokenStyleTest, PrimaryButtonIsFilled) {
    auto& button = Put(new QPushButton("甲"));
    SetLook(button, Look::Primary);
    EXPECT_EQ(At(button, 6, 14), Hex(kAccent));
    EXPECT_GT(CountOf(button, kOnAccent), 0);
    PointAt(button);
    EXPECT_EQ(At(button, 6, 14), Hex(kAccentHover));
    PointAt(button, false);
    button.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(At(button, 30, 1), Hex(kText));
    button.setEnabled(false);
    EXPECT_EQ(At(button, 6, 14), Hex(kLine));
}

TEST_F(TokenStyleTest, LineActionIsAWordUntilItIsPointedAt) {
    QPushButton* word = MakeLineAction("甲");
    word->setFont(TallFont());
    auto& action = Put(word, {80, 24});
    EXPECT_EQ(At(action, 12, 0), Hex(kWindow));
    EXPECT_EQ(At(action, 4, 12), Hex(kWindow));
    EXPECT_GT(CountOf(action, kAccent), 0);
    PointAt(action);
    EXPECT_EQ(At(action, 4, 12), Hex(kHover));
    action.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(At(action, 12, 1), Hex(kAccent));
}

TEST_F(TokenStyleTest, ToolIsTintedWhileItIsChecked) {
    auto* tool = new QToolButton;
    tool->setText("甲");
    tool->setCheckable(true);
    tool->setFocusPolicy(Qt::StrongFocus);
    SetLook(*tool, Look::ToolBar);
    Put(tool);
    EXPECT_EQ(At(*tool, 4, 16), Hex(kWindow));
    PointAt(*tool);
    EXPECT_EQ(At(*tool, 4, 16), Hex(kHover));
    tool->setChecked(true);
    EXPECT_EQ(At(*tool, 4, 16), Hex(kTint));
    tool->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(At(*tool, 15, 1), Hex(kAccent));
}

TEST_F(TokenStyleTest, FlatToolIsTintedWhileWhatItDoesIsOn) {
    auto* tool = new QToolButton;
    tool->setText("甲");
    SetLook(*tool, Look::Flat);
    Put(tool);
    EXPECT_EQ(At(*tool, 3, 10), Hex(kWindow));
    SetLook(*tool, Look::FlatChosen);
    EXPECT_EQ(At(*tool, 3, 10), Hex(kTint));
}

// --- Options ---

TEST_F(TokenStyleTest, BoxIsFilledWhileItIsTicked) {
    auto& box = Put(new QCheckBox("甲"));
    const int middle = box.height() / 2;
    EXPECT_EQ(At(box, 6, middle), Hex(kSurface));
    EXPECT_EQ(At(box, 4, middle), Hex(kBorder));
    box.setChecked(true);
    EXPECT_EQ(At(box, 6, middle - 4), Hex(kAccent));
    EXPECT_GT(CountOf(box, kOnAccent), 0);
}

TEST_F(TokenStyleTest, ChosenOptionIsARing) {
    auto& option = Put(new QRadioButton("甲"));
    const int middle = option.height() / 2;
    EXPECT_EQ(At(option, 6, middle), Hex(kSurface));
    option.setChecked(true);
    EXPECT_EQ(At(option, 6, middle), Hex(kAccent));
    EXPECT_EQ(At(option, 11, middle), Hex(kOnAccent));
}

TEST_F(TokenStyleTest, OptionWithTheFocusHasARingAroundItsWords) {
    for (QAbstractButton* option :
         std::initializer_list<QAbstractButton*>{new QCheckBox("甲"), new QRadioButton("甲")}) {
        Put(option).setFocus(Qt::TabFocusReason);
        EXPECT_EQ(At(*option, 20, 0), Hex(kAccent));
        EXPECT_EQ(At(*option, 20, -1), Hex(kAccent));
        EXPECT_EQ(At(*option, -1, 10), Hex(kAccent));
        delete option;
    }
}

TEST_F(TokenStyleTest, QuietOptionIsInTheColourOfCaptionsUnlessItIsChosen) {
    auto& option = Put(new QRadioButton("HHH"));
    option.setFont(TallFont());
    option.resize(option.sizeHint());
    SetLook(option, Look::Quiet);
    EXPECT_GT(CountOf(option, kText2), 0);
    EXPECT_EQ(CountOf(option, kText), 0);
    option.setChecked(true);
    EXPECT_EQ(CountOf(option, kText2), 0);
    EXPECT_GT(CountOf(option, kText), 0);
    option.setEnabled(false);
    EXPECT_GT(CountOf(option, kDisabled), 0);
}

TEST_F(TokenStyleTest, WordsOfATightOptionStandCloser) {
    QCheckBox wide("甲");
    QCheckBox tight("甲");
    SetLook(tight, Look::Tight);
    EXPECT_EQ(wide.sizeHint().width() - tight.sizeHint().width(), 6);
}

// --- Areas ---

TEST_F(TokenStyleTest, TextsHaveTheAccentRingWithFocus) {
    auto& texts = Put(new QPlainTextEdit, {200, 80});
    EXPECT_EQ(At(texts, 100, 0), Hex(kSurface));
    texts.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(At(texts, 100, 0), Hex(kAccent));
    EXPECT_EQ(At(texts, 100, 1), Hex(kAccent));
    EXPECT_EQ(At(texts, 100, 2), Hex(kSurface));
}

TEST_F(TokenStyleTest, OutlineOfAHintTakesRoomFromWhatItHolds) {
    auto* hint = new QFrame;
    SetLook(*hint, Look::Hint);
    auto* layout = new QVBoxLayout(hint);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* words = new QLabel("甲");
    layout->addWidget(words);
    Put(hint, {60, 30});
    EXPECT_EQ(words->geometry(), QRect(1, 1, 58, 28));
    EXPECT_EQ(At(*hint, 30, 0), Hex(kBorder));
    EXPECT_EQ(At(*hint, 30, 1), Hex(kSurface));
}

TEST_F(TokenStyleTest, ScrollBarIsAThumbOnTheGroundOfItsArea) {
    auto& texts = Put(new QPlainTextEdit(QString("a\n").repeated(100)), {200, 120});
    QApplication::processEvents();
    auto& bar = *texts.verticalScrollBar();
    EXPECT_EQ(bar.width(), 12);
    EXPECT_EQ(At(bar, 1, 10), Hex(kSurface));
    EXPECT_EQ(At(bar, 6, 10), Hex(kScroll));
    EXPECT_EQ(At(bar, 6, -10), Hex(kSurface));
}

TEST_F(TokenStyleTest, HandleBetweenAreasHasOneHairline) {
    auto* splitter = new QSplitter;
    splitter->addWidget(new QWidget);
    splitter->addWidget(new QWidget);
    Put(splitter, {200, 60});
    QWidget& handle = *splitter->handle(1);
    EXPECT_EQ(At(handle, 0, 30), Hex(kLine));
    EXPECT_EQ(At(handle, 1, 30), Hex(kWindow));
    QHoverEvent over(QEvent::HoverEnter, QPointF(1, 30), QPointF(1, 30), QPointF(-1, 30));
    QApplication::sendEvent(&handle, &over);
    EXPECT_EQ(At(handle, 1, 30), Hex(kTint));
}

TEST_F(TokenStyleTest, ChosenTabStandsOnTheAccent) {
    auto* tabs = new QTabBar;
    tabs->setDrawBase(false);
    tabs->addTab("HHHH");
    tabs->addTab("HHHH");
    Put(tabs);
    EXPECT_EQ(tabs->height(), 32);
    EXPECT_EQ(At(*tabs, 15, -1), Hex(kAccent));
    EXPECT_EQ(At(*tabs, tabs->tabRect(1).center().x(), -1), Hex(kWindow));
    tabs->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(At(*tabs, 15, 1), Hex(kAccent));
}

TEST_F(TokenStyleTest, TableOfFactsMarksItsRowAndHasHeadingsOverALine) {
    auto* table = new FactTable({"甲", "乙"}, nullptr);
    table->AddRow({"a", "b"});
    table->AddRow({"a", "b"});
    table->selectRow(0);
    table->horizontalHeader()->setFont(TallFont());
    Put(table, {220, 120});
    EXPECT_EQ(At(*table, 100, 0), Hex(kLine));
    QWidget& headings = *table->horizontalHeader();
    EXPECT_EQ(At(headings, 60, 2), Hex(kHeader));
    EXPECT_EQ(At(headings, 60, -1), Hex(kLine));
    EXPECT_GT(CountOf(headings, kText2), 0);
    EXPECT_EQ(At(*table->viewport(), 180, 4), Hex(kRow));
}

TEST_F(TokenStyleTest, StatusBarHasALineAboveAndQuietWords) {
    auto* bar = new QStatusBar;
    bar->setSizeGripEnabled(false);
    bar->setFont(TallFont());
    bar->showMessage("HHH");
    Put(bar, {200, 24});
    EXPECT_EQ(bar->height(), 24);
    EXPECT_EQ(At(*bar, 150, 0), Hex(kLine));
    EXPECT_EQ(At(*bar, 150, 1), Hex(kWindow));
    EXPECT_GT(CountOf(*bar, kText2), 0);
    EXPECT_EQ(CountOf(*bar, kText), 0);
}

TEST_F(TokenStyleTest, ProgressIsTheAccentOnALine) {
    auto* bar = new QProgressBar;
    bar->setTextVisible(false);
    bar->setValue(50);
    Put(bar, {100, 4});
    EXPECT_EQ(At(*bar, 49, 2), Hex(kAccent));
    EXPECT_EQ(At(*bar, 50, 2), Hex(kLine));
}

TEST_F(TokenStyleTest, BandOnTheTintEndsInALine) {
    auto* band = new QWidget;
    band->setAttribute(Qt::WA_StyledBackground);
    SetLook(*band, Look::TintBand);
    Put(band, {100, 30});
    EXPECT_EQ(At(*band, 50, 10), Hex(kTint));
    EXPECT_EQ(At(*band, 50, -1), Hex(kLine));
}

// --- Menus and tips ---

TEST_F(TokenStyleTest, EntryOfAMenuIsTintedWhileItIsChosen) {
    QMenu menu;
    QAction* first = menu.addAction("HHHHHHHH");
    QAction* last = menu.addAction("HHHHHHHH");
    last->setEnabled(false);
    menu.popup(QPoint(40, 40));
    menu.setActiveAction(first);
    EXPECT_EQ(menu.actionGeometry(first).height(), 28);
    EXPECT_EQ(At(menu, 60, 0), Hex(kBorder));
    EXPECT_EQ(At(menu, 60, 2), Hex(kSurface));
    EXPECT_EQ(At(menu, 10, 10), Hex(kTint));
    EXPECT_GT(CountOf(menu, kDisabled), 0);
    menu.close();
}

TEST_F(TokenStyleTest, TipIsOnTheSurface) {
    EXPECT_EQ(Hex(QToolTip::palette().color(QPalette::ToolTipText).rgba()), Hex(kText));
    QImage picture(40, 20, QImage::Format_RGB32);
    QPainter painter(&picture);
    QStyleOptionFrame option;
    option.rect = picture.rect();
    QApplication::style()->drawPrimitive(QStyle::PE_PanelTipLabel, &option, &painter, nullptr);
    EXPECT_EQ(Hex(picture.pixel(20, 0)), Hex(kLine));
    EXPECT_EQ(Hex(picture.pixel(20, 10)), Hex(kSurface));
}

// --- The theme ---

TEST_F(TokenStyleTest, ChangeOfTheThemePaintsWhatIsShownAnew) {
    auto* list = new QComboBox;
    list->setEditable(true);
    Put(list, {100, 28}).setFocus();
    EXPECT_EQ(At(*list, 40, 0), Hex(kAccent));
    theme.Use(Theme::Choice::Dark);
    EXPECT_EQ(At(*list, 40, 0), Hex(kDarkAccent));
    EXPECT_EQ(At(*list, 40, 4), Hex(kDarkSurface));
    theme.Use(Theme::Choice::Light);
    EXPECT_EQ(At(*list, 40, 0), Hex(kAccent));
}

TEST_F(TokenStyleTest, CaptionsFollowTheTheme) {
    QLabel* words = MakeCaption("HHH");
    words->setFont(TallFont());
    auto& caption = Put(words);
    EXPECT_GT(CountOf(caption, kText2), 0);
    theme.Use(Theme::Choice::Dark);
    EXPECT_EQ(CountOf(caption, kText2), 0);
}

TEST(TokenStyleOfTheWindow, NothingHasAStyleSheet) {
    NativeBench session;
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    const MainWindow window(session.Form(), theme, settings);
    EXPECT_TRUE(qApp->styleSheet().isEmpty());
    for (const QWidget* widget : window.findChildren<QWidget*>()) EXPECT_TRUE(widget->styleSheet().isEmpty());
}

}  // namespace
}  // namespace commtest::testing
