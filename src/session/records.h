#pragma once

namespace commtest {

class MainForm;

// Appends LogLine to the error file if ConAutoSave(1) is ticked: time stamp, line, port settings. Error 52 if
// the file is not open, as in a session that Enter has begun.
void LogCommError(MainForm& form);

// Saves the record pane as a rich-text file named by the moment. Error 76 if the record folder is missing.
void SaveRecord(MainForm& form);

// Double click on a statistics label: the counters start anew; the labels follow at the next routing.
void ConCommMessage_DblClick(MainForm& form);

// Click on a pane: empties the record, does nothing on the conversion texts.
void ConCommString_Click(MainForm& form, int index);

// The three layouts of the two panes in turn. The choice is remembered.
void ConShowCommand_Click(MainForm& form);

// Buttons of the error file: 0 empties it, 1 shows it while the session is stopped. Error 53 if there is
// none.
void ClearFileCommand_Click(MainForm& form, int index);

}  // namespace commtest
