#include "window/guide_key.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <utility>

#include "window/guide_places.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

bool IsHelpKey(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

QStringList WordsOf(const QWidget& box) {
    QStringList words;
    for (const QLabel* label : box.findChildren<QLabel*>()) words += label->text();
    return {words.join(u'\n')};
}

}  // namespace

GuideKey::GuideKey(const Theme& theme, QString home, QSettings& settings, QMainWindow& window,
                   std::function<QStringList()> said)
    : QObject(&window),
      theme_(theme),
      home_(std::move(home)),
      settings_(settings),
      window_(window),
      said_(std::move(said)) {
    qApp->installEventFilter(this);
}

bool GuideKey::eventFilter(QObject* watched, QEvent* event) {
    const bool isUnderPopup = QApplication::activePopupWidget() != nullptr;
    if (!watched->isWidgetType() || !IsHelpKey(*event) || isUnderPopup) return false;
    if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) ShowFor(*static_cast<QWidget*>(watched));
    return true;
}

void GuideKey::ShowFor(const QWidget& focus) {
    const QString place = PlaceFor(focus);
    QWidget* const box = QApplication::activeModalWidget();
    shown_ = &WindowOver(box != nullptr ? *box : static_cast<QWidget&>(window_));
    shown_->ShowPlace(place);
}

QString GuideKey::PlaceFor(const QWidget& focus) const {
    if (focus.window() == &window_) {
        const QString entry = EntryAbout(said_());
        return entry.isEmpty() ? GuidePlaceOf(&focus) : entry;
    }
    const QString place = GuidePlaceOf(&focus);
    if (!place.isEmpty() || qobject_cast<const GuideWindow*>(focus.window()) != nullptr) return place;
    const QString entry = EntryAbout(WordsOf(*focus.window()));
    return entry.isEmpty() ? kMessages.toString() : entry;
}

QString GuideKey::EntryAbout(const QStringList& said) const {
    QFile messages(home_ + u'/' + kMessages.toString());
    if (said.isEmpty() || !messages.open(QIODevice::ReadOnly)) return {};
    const QString page = QString::fromUtf8(messages.readAll());
    for (const QString& words : said) {
        const QString anchor = AnchorAbout(page, words);
        if (!anchor.isEmpty()) return kMessages.toString() + u'#' + anchor;
    }
    return {};
}

// A window that a box stands over hears nothing: the guide of a box is its own, and goes with it.
GuideWindow& GuideKey::WindowOver(QWidget& owner) {
    if (&owner == &window_ && beside_) return *beside_;
    auto* guide = new GuideWindow(theme_, home_, settings_, &owner);
    if (&owner == &window_) {
        beside_ = guide;
    } else {
        guide->setAttribute(Qt::WA_DeleteOnClose);
    }
    return *guide;
}

}  // namespace commtest
