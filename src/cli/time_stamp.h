#pragma once

#include <QDateTime>
#include <QString>

namespace commtest {

// Date, time and milliseconds of the local clock with its distance from UTC: "2026-11-22T09:50:41.123+08:00".
QString TimeStamp(const QDateTime& moment);

// The regular expression of one.
extern const QString kTimeStampPattern;

}  // namespace commtest
