#include "window/glyphs.h"

#include <cmath>
#include <map>
#include <tuple>

#include "window/icons.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString NameOf(Glyph glyph) {
    switch (glyph) {
        case Glyph::Dots: return u"glyph-dots"_s;
        case Glyph::Tick: return u"glyph-tick"_s;
        case Glyph::Differs: return u"glyph-differs"_s;
        case Glyph::Refused: return u"glyph-refused"_s;
        case Glyph::Unknown: return u"glyph-unknown"_s;
        case Glyph::Warning: return u"glyph-warning"_s;
        case Glyph::Information: return u"glyph-information"_s;
        case Glyph::Pencil: return u"glyph-pencil"_s;
        case Glyph::Lens: return u"glyph-lens"_s;
        case Glyph::Replay: return u"glyph-replay"_s;
        case Glyph::Plug: break;
    }
    return u"glyph-plug"_s;
}

}  // namespace

QIcon GlyphIcon(Glyph glyph, const QColor& colour) {
    return TwoToneIcon(NameOf(glyph), colour, colour, colour);
}

QPixmap GlyphPicture(Glyph glyph, const QColor& colour, int size, qreal ratio) {
    using Key = std::tuple<Glyph, QRgb, int>;
    static std::map<Key, QPixmap> kept;
    const int pixels = static_cast<int>(std::lround(size * ratio));
    QPixmap& picture = kept[{glyph, colour.rgb(), pixels}];
    if (picture.isNull()) picture = GlyphIcon(glyph, colour).pixmap(QSize(pixels, pixels), 1.0);
    QPixmap shown = picture;
    shown.setDevicePixelRatio(ratio);
    return shown;
}

}  // namespace commtest
