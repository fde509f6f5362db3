#include "window/face_choice.h"

#include <QActionGroup>
#include <QMenu>

#include "host_qt/words.h"
#include "window/note_bar.h"
#include "window/tool_bar.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kToolsButton = 10;
const QString kFaceKey = u"Window/Face"_s;

}  // namespace

const WindowFace& RememberedFace(const QSettings& settings) {
    const WindowFace* face = FindFace(settings.value(kFaceKey).toString());
    return face == nullptr ? kWindowFaces.front() : *face;
}

void AddFaceChoice(const MainForm& form, ToolBar& toolBar, QSettings& settings, NoteBar& notes) {
    // To be found in both languages.
    QMenu* menu = toolBar.Button(kToolsButton).menu()->addMenu(u"界面语言 Language"_s);
    auto* choices = new QActionGroup(menu);
    const WindowFace& present = settings.contains(kFaceKey) ? RememberedFace(settings) : FaceOf(form);
    for (const WindowFace& face : kWindowFaces) {
        QAction* choice = choices->addAction(menu->addAction(face.caption.toString()));
        choice->setCheckable(true);
        choice->setChecked(&face == &present);
        QObject::connect(choice, &QAction::triggered, menu, [&face, &settings, &notes] {
            settings.setValue(kFaceKey, face.name.toString());
            notes.Say(Words::tr("下次启动时的界面语言：%1").arg(face.caption));
        });
    }
}

}  // namespace commtest
