#include "cli/exchange_line.h"

#include <algorithm>

#include "cli/answer_words.h"
#include "cli/check_key.h"
#include "cli/json_text.h"
#include "cli/scaled_values.h"
#include "cli/table.h"
#include "session/main_form.h"

namespace commtest {

namespace {

TextView KeyOf(Ending ending) {
    switch (ending) {
        case Ending::Complete: return u"complete";
        case Ending::Continued: return u"continued";
        case Ending::Silent: return u"silent";
        default: return u"incomplete";
    }
}

TextView KeyOf(Answer answer) {
    switch (answer) {
        case Answer::Data: return u"data";
        case Answer::Written: return u"written";
        case Answer::Refused: return u"refused";
        case Answer::Test: return u"test";
        case Answer::Board: return u"board";
        default: return u"unknown";
    }
}

void PutReplyTime(const Exchange& exchange, JsonWriter& json) {
    constexpr std::int64_t kMicroseconds = 1000;  // of a millisecond
    json.PutKey(u"replyTime");
    if (!exchange.firstByteTime) return json.PutNull();
    json.PutNumber((*exchange.firstByteTime - exchange.requestTime + kMicroseconds / 2) / kMicroseconds);
}

void PutException(const Outcome& outcome, JsonWriter& json) {
    json.PutKey(u"exception");
    const QString numbers = NumbersOfException(outcome);
    if (numbers.isEmpty()) return json.PutNull();
    json.PutText(numbers.toStdU16String());
}

void PutRow(const MainForm& form, int row, const ScaledValues& scaled, JsonWriter& json) {
    const Grid& grid = form.ParameterGrid();
    const Text scaledValue = scaled.Of(form, row);
    json.BeginObject();
    json.PutText(u"groupRead", grid.Cell(row, column::kGroupRead));
    json.PutNumber(u"row", row);
    json.PutKey(u"scaledValue");
    if (scaledValue == kUndecided) {
        json.PutNull();
    } else {
        json.PutText(scaledValue);
    }
    json.PutText(u"singleRead", grid.Cell(row, column::kSingleRead));
    json.PutText(u"value", grid.Cell(row, column::kValue));
    json.EndObject();
}

}  // namespace

std::string ExchangeLine(const MainForm& form, const Outcome& outcome, const std::vector<int>& rows,
                         const ScaledValues& scaled, const QString& time) {
    const Exchange& exchange = outcome.exchange;
    JsonWriter json(kJsonInOneLine);
    json.BeginObject();
    json.PutText(u"check", KeyOf(outcome.verdict.check));
    json.PutText(u"ending", KeyOf(exchange.ending));
    PutException(outcome, json);
    json.PutText(u"reply", Trim(exchange.reply));
    PutReplyTime(exchange, json);
    json.PutText(u"request", Trim(exchange.request));
    json.PutKey(u"rows");
    json.BeginArray();
    for (const RowSpan& span : outcome.rows.Runs()) {
        for (int row = span.first; row <= span.last; ++row) {
            const bool isWanted = rows.empty() || std::find(rows.begin(), rows.end(), row) != rows.end();
            if (isWanted) PutRow(form, row, scaled, json);
        }
    }
    json.EndArray();
    json.PutText(u"time", time.toStdU16String());
    json.PutText(u"verdict", KeyOf(outcome.verdict.answer));
    json.EndObject();
    return json.Take();
}

}  // namespace commtest
