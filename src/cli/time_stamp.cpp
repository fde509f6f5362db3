#include "cli/time_stamp.h"

namespace commtest {

using namespace Qt::StringLiterals;

const QString kTimeStampPattern = uR"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}[+-]\d\d:\d\d)"_s;

QString TimeStamp(const QDateTime& moment) {
    constexpr int kMinute = 60;
    const int minutes = moment.offsetFromUtc() / kMinute;
    const QString zone = u"%1%2:%3"_s.arg(QChar(minutes < 0 ? u'-' : u'+'))
                             .arg(qAbs(minutes) / kMinute, 2, 10, QChar(u'0'))
                             .arg(qAbs(minutes) % kMinute, 2, 10, QChar(u'0'));
    return moment.toString(u"yyyy-MM-ddTHH:mm:ss.zzz") + zone;
}

}  // namespace commtest
