#include "window/window_face.h"

#include <algorithm>

namespace commtest {

const WindowFace* FindFace(QStringView name) {
    const auto* face = std::ranges::find(kWindowFaces, name, &WindowFace::name);
    return face == kWindowFaces.end() ? nullptr : face;
}

const WindowFace& FaceOf(const MainForm& form) {
    const auto* face = std::ranges::find(kWindowFaces, &form.texts,
                                         [](const WindowFace& each) { return &each.session.texts; });
    return face == kWindowFaces.end() ? kWindowFaces.front() : *face;
}

}  // namespace commtest
