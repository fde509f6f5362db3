#include "window/icons.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPixmap>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 20;

QPixmap Render(const QString& drawing, const QColor& ink, const QColor& accent, int scale) {
    QString coloured = drawing;
    coloured.replace(u"#44545E"_s, ink.name()).replace(u"#0B6B88"_s, accent.name());
    QByteArray bytes = coloured.toUtf8();
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(QSize(kIconSize, kIconSize) * scale);
    QPixmap pixmap = QPixmap::fromImage(reader.read());
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

}  // namespace

QIcon TwoToneIcon(const QString& name, const QColor& ink, const QColor& accent, const QColor& disabled) {
    QFile file(u":/icons/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QString drawing = QString::fromUtf8(file.readAll());
    QIcon icon;
    for (const int scale : {1, 2, 3}) {
        icon.addPixmap(Render(drawing, ink, accent, scale), QIcon::Normal);
        icon.addPixmap(Render(drawing, disabled, disabled, scale), QIcon::Disabled);
    }
    return icon;
}

}  // namespace commtest
