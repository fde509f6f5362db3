#pragma once

namespace commtest {

class MainForm;

// Hands ReplyText to the parser of the protocol, whose code is read anew from MeterCodeText (0 without an
// instrument), and refreshes the statistics. A protocol without a parser keeps its ReplyText.
void RouteReply(MainForm& form);

// The captions of ConCommMessage. Error 6 above 21474836 failures.
void ShowStatistics(MainForm& form);

}  // namespace commtest
