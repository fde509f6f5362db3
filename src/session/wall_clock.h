#pragma once

#include "host/clock.h"
#include "runtime/text.h"

// The spellings of a moment that the session uses.
namespace commtest {

Text ClockPanelText(const DateTime& now);          // "2024年05月06日  12:00:00"
Text DayFirstClockPanelText(const DateTime& now);  // "06 / 05 / 2024   12:00:00"
Text TimeStampText(const DateTime& now);           // "2024-05-06 12:00:00"
Text RecordDigits(const DateTime& now);            // "240506120000"
Text HourMinuteText(const DateTime& now);          // "12:00"

int SecondsOfDay(const DateTime& now);

// Seconds of the day of a text "HH:MM"; error 13 if it is none.
int SecondsOfHourMinute(TextView text);

}  // namespace commtest
