#include "session/wall_clock.h"

#include <cstdio>

#include "runtime/number.h"

namespace commtest {

namespace {

template <typename... Values>
Text Printed(const char* format, Values... values) {
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return FromUtf8(text);
}

}  // namespace

Text ClockPanelText(const DateTime& now) {
    return Printed("%04d年%02d月%02d日  %02d:%02d:%02d", now.year, now.month, now.day, now.hour, now.minute,
                   now.second);
}

Text DayFirstClockPanelText(const DateTime& now) {
    return Printed("%02d / %02d / %04d   %02d:%02d:%02d", now.day, now.month, now.year, now.hour, now.minute,
                   now.second);
}

Text TimeStampText(const DateTime& now) {
    return Printed("%04d-%02d-%02d %02d:%02d:%02d", now.year, now.month, now.day, now.hour, now.minute,
                   now.second);
}

Text RecordDigits(const DateTime& now) {
    return Printed("%02d%02d%02d%02d%02d%02d", now.year % 100, now.month, now.day, now.hour, now.minute,
                   now.second);
}

Text HourMinuteText(const DateTime& now) { return Printed("%02d:%02d", now.hour, now.minute); }

int SecondsOfDay(const DateTime& now) { return (now.hour * 60 + now.minute) * 60 + now.second; }

int SecondsOfHourMinute(TextView text) {
    return (ToWhole16(Before(text, u':')) * 60 + ToWhole16(Behind(text, u':'))) * 60;
}

}  // namespace commtest
