#include "window/icons.h"

#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

struct Tones {
    QColor ink;
    QColor accent;
    QColor disabled;
};

// A drawing is rendered when it is shown for the first time, in the pixels of the screen where it is shown.
class TwoToneEngine : public QIconEngine {
  public:
    TwoToneEngine(QString drawing, Tones tones) : drawing_(std::move(drawing)), tones_(tones) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, scaledPixmap(rect.size() * ratio, mode, state, ratio));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        QPixmap& rendered = rendered_[{size.width(), mode == QIcon::Disabled}];
        if (rendered.isNull()) rendered = Render(size, mode == QIcon::Disabled);
        return rendered;
    }

    QIconEngine* clone() const override { return new TwoToneEngine(drawing_, tones_); }

  private:
    QPixmap Render(const QSize& size, bool isDisabled) const {
        const QColor& ink = isDisabled ? tones_.disabled : tones_.ink;
        const QColor& accent = isDisabled ? tones_.disabled : tones_.accent;
        QString coloured = drawing_;
        coloured.replace("#44545E"_L1, ink.name()).replace("#0B6B88"_L1, accent.name());
        QByteArray bytes = coloured.toUtf8();
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, "svg");
        reader.setScaledSize(size);
        return QPixmap::fromImage(reader.read());
    }

    QString drawing_;
    Tones tones_;
    QHash<std::pair<int, bool>, QPixmap> rendered_;
};

}  // namespace

QIcon TwoToneIcon(const QString& name, const QColor& ink, const QColor& accent, const QColor& disabled) {
    static const bool kCanRead = QImageReader::supportedImageFormats().contains("svg");
    QFile file(u":/icons/%1.svg"_s.arg(name));
    if (!kCanRead || !file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new TwoToneEngine(QString::fromUtf8(file.readAll()), {ink, accent, disabled}));
}

}  // namespace commtest
