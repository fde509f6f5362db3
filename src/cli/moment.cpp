#include "cli/moment.h"

#include <QStringList>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QTime TimeNamed(const QString& text) {
    const QTime time = QTime::fromString(text, u"HH:mm:ss"_s);
    return time.isValid() ? time : QTime::fromString(text, u"HH:mm"_s);
}

}  // namespace

std::optional<QDateTime> MomentNamed(const QString& text, const QDateTime& now) {
    const qsizetype time = text.size() - text.split(u' ').last().split(u'T').last().size();
    const QTime named = TimeNamed(text.mid(time));
    if (!named.isValid()) return std::nullopt;
    if (time == 0) {
        const QDateTime today(now.date(), named);
        return today > now ? today : QDateTime(now.date().addDays(1), named);
    }
    const QDateTime moment(QDate::fromString(text.left(time - 1), u"yyyy-MM-dd"_s), named);
    if (!moment.isValid() || moment <= now) return std::nullopt;
    return moment;
}

}  // namespace commtest
