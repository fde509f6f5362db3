#include "window/spoken_words.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace commtest {

SpokenWords::SpokenWords(const WindowFace& face) {
    const QString toolkitTexts = face.toolkitTexts.toString();
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!toolkitTexts.isEmpty() && toolkit_.load(toolkitTexts, folder))
        QCoreApplication::installTranslator(&toolkit_);
    if (!face.translation.isEmpty() && own_.load(face.translation.toString()))
        QCoreApplication::installTranslator(&own_);
}

}  // namespace commtest
