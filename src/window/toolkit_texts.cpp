#include "window/toolkit_texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace commtest {

using namespace Qt::StringLiterals;

void LoadToolkitTexts() {
    auto* translator = new QTranslator(qApp);
    if (translator->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

}  // namespace commtest
