#pragma once

namespace commtest {

class MainForm;

// Has ReplyText taken by the protocol, whose code is read anew from MeterCodeText (0 without an
// instrument), and refreshes the statistics. One that judges no replies keeps its ReplyText.
void RouteReply(MainForm& form);

// The captions of ConCommMessage and the places of their numbers. Error 6 above 21474836 failures.
void ShowStatistics(MainForm& form);

}  // namespace commtest
