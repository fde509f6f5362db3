#include "window/status_panels.h"

#include <QEvent>
#include <QHBoxLayout>

#include "commands/startup.h"
#include "host/store.h"
#include "host_qt/words.h"
#include "window/bindings.h"
#include "window/look.h"
#include "window/note_bar.h"
#include "window/notice_words.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDotSize = 8;

// The maker, and the catalogue in use. Opened behind a start that had none, its word is there twice.
QString MakerWords(const MainForm& form) {
    const QString local = u"    本地数据库"_s;
    const QString words = ToQt(form.StatusBar1[0].Value());
    if (!form.outside.store.IsOpen()) return words.section(u"    "_s, 0, 0) + Words::tr("    没有目录");
    return words.endsWith(local + local) ? words.chopped(local.size()) : words;
}

// A catalogue that came in the place of the server's says so here alone.
QString MakerToolTip(const MainForm& form) {
    QStringList lines;
    if (form.switches.catalogueModeSwitch) lines += u"双击第一栏框,可以修改数据库的连接方式"_s;
    if (!form.ServerProblem.empty())
        lines += Words::tr("服务器上的目录打不开：%1").arg(ToQt(form.ServerProblem).simplified());
    return lines.join(u'\n');
}

}  // namespace

StatusPanels::StatusPanels(Binder& binder, NoteBar& notes, QWidget* parent)
    : QStatusBar(parent), binder_(binder), notes_(notes) {
    setSizeGripEnabled(false);
    setContentsMargins(8, 0, 8, 0);
    AddMakerPanel();
    addWidget(MakeHairline(Qt::Vertical, 12));
    AddPortPanel();
    addWidget(&notes_, 1);
    auto* clock = new QLabel(this);
    ShowAsCaption(*clock);
    Bind(binder, binder.Form().StatusBar1[2], *clock);
    addPermanentWidget(clock);
    FollowNote();
}

void StatusPanels::AddMakerPanel() {
    auto* maker = new QLabel(this);
    maker->setObjectName(u"makerPanel"_s);
    ShowAsCaption(*maker);
    SetLook(*maker, Look::Word);
    binder_.AtEachLook([maker, &form = binder_.Form()] {
        maker->setText(MakerWords(form));
        const QString tip = MakerToolTip(form);
        if (tip != maker->toolTip()) maker->setToolTip(tip);
    });
    maker_ = maker;
    addWidget(maker);
    if (!binder_.Form().switches.catalogueModeSwitch) return;
    maker->installEventFilter(this);
    WhenEntered(*maker, [this] { SwitchCatalogue(); });
}

void StatusPanels::AddPortPanel() {
    MainForm& form = binder_.Form();
    auto* panel = new QWidget(this);
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto* dot = new QFrame(panel);
    dot->setObjectName(u"comShow"_s);
    SetLook(*dot, Look::Dot);
    dot->setFixedSize(kDotSize, kDotSize);
    QSizePolicy policy = dot->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    dot->setSizePolicy(policy);
    const auto showDot = [dot, &form] { dot->setVisible(form.IsRunning() && form.ComShow.Visible()); };
    binder_.Watch(form.ComShow, showDot);
    binder_.Watch(form.RunningState(), showDot);
    layout->addWidget(dot);
    auto* port = new QLabel(panel);
    ShowAsCaption(*port);
    Bind(binder_, form.StatusBar1[1], *port);
    layout->addWidget(port);
    addWidget(panel);
}

void StatusPanels::FollowNote() {
    MainForm& form = binder_.Form();
    binder_.Watch(form.StatusNote, [this, &form] {
        const QString note = WordsOn(form.StatusNote.Value());
        if (!note.isEmpty()) notes_.Say(note);
    });
    // The same word can be said again once it has gone.
    connect(&notes_, &NoteBar::Ended, this, [&form] { form.StatusNote.Set({}); });
}

// A panel whose text has changed is laid out and painted by itself; the toolkit would paint the whole bar.
bool StatusPanels::event(QEvent* event) {
    if (event->type() != QEvent::LayoutRequest) return QStatusBar::event(event);
    setAttribute(Qt::WA_UpdatesDisabled);
    const bool isDone = QStatusBar::event(event);
    setAttribute(Qt::WA_UpdatesDisabled, false);
    return isDone;
}

bool StatusPanels::eventFilter(QObject* watched, QEvent* event) {
    if (watched == maker_ && event->type() == QEvent::MouseButtonDblClick) {
        SwitchCatalogue();
        return true;
    }
    return QStatusBar::eventFilter(watched, event);
}

void StatusPanels::SwitchCatalogue() {
    binder_.Event([this] { StatusBar1_PanelDblClick(binder_.Form(), 1); });
}

}  // namespace commtest
