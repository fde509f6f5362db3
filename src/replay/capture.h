#pragma once

namespace commtest {

class MainForm;

// The tick 数据采集 was clicked: the list of sent frames and the counts of pairs begin anew. The tick itself
// is the switch.
void ConSaveData_Click(MainForm& form);

// Stores the finished exchange in 通讯_仿真, unless CaptureWaits is set or its reply is there already under
// this instrument and note. The note of the run is asked for first where it is empty. One that a
// LostStore keeps out is missed and counted. Other errors of the store, which an apostrophe in a name or in
// the note brings, too.
void CaptureExchange(MainForm& form);

}  // namespace commtest
