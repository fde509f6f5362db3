#include "host_qt/xml_text.h"

namespace commtest {

namespace {

bool IsPair(const QString& text, qsizetype at) {
    return at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
}

bool Fits(QChar character) {
    const ushort code = character.unicode();
    if (code < u' ') return code == u'\t' || code == u'\n';
    return !character.isSurrogate() && code < 0xFFFE;
}

}  // namespace

QString XmlText(TextView text) {
    QString written = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
    for (qsizetype at = 0; at < written.size(); ++at) {
        if (IsPair(written, at)) {
            ++at;
        } else if (!Fits(written[at])) {
            written[at] = u'?';
        }
    }
    return written;
}

}  // namespace commtest
