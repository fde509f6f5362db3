#include "session/records.h"

#include "host/clock.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host/serial_port.h"
#include "host/settings_store.h"
#include "runtime/code_page.h"
#include "runtime/number.h"
#include "session/main_form.h"
#include "session/wall_clock.h"

namespace commtest {

namespace {

// Two records of one second: the later one gets "-2" behind its digits.
Text FreeRecordName(const MainForm& form) {
    const Text stem = Text(kRecordFolderName) + u"/记录" + RecordDigits(form.outside.clock.Now());
    Text name = stem + u".rtf";
    for (int turn = 2; form.outside.files.Exists(name); ++turn)
        name = stem + u"-" + WholeText(turn) + u".rtf";
    return name;
}

void ShowErrorFile(MainForm& form) {
    const FileText file = form.outside.files.ReadEnd(Text(kErrorFileName));
    form.RichTextBox2.Replace(file.text);
    if (file.isEndOnly) form.StatusNote.Set({Notice::Kind::EndOfFile, Text(kErrorFileName)});
}

}  // namespace

void LogCommError(MainForm& form) {
    if (!form.ConAutoSave[1].Value()) return;
    const Text lineEnd(kLineEnd);
    form.outside.files.WriteToErrorFile(ToCodePage(TimeStampText(form.outside.clock.Now())));
    // Q68: nothing behind the time stamp, two line ends behind the record.
    form.outside.files.WriteToErrorFile(
        ToCodePage(form.LogLine + u"        串口设置: " + form.MSComm1.Settings() + lineEnd + lineEnd));
}

void SaveRecord(MainForm& form) {
    form.outside.files.SaveRichText(FreeRecordName(form), form.Record().WholeText());
}

void ConCommMessage_DblClick(MainForm& form) {
    form.SendCount = 0;
    form.IncompleteCount = 0;
    form.CheckErrorCount = 0;
    form.NoReplyCount = 0;  // Q64: the labels wait for the next routing
}

void ConCommString_Click(MainForm& form, int index) {
    if (index == 1) form.Record().Clear();  // Q67
}

void ConShowCommand_Click(MainForm& form) {
    form.ShowTypeStep = Add16(form.ShowTypeStep, 1);
    if (form.ShowTypeStep != 1 && form.ShowTypeStep != 2) form.ShowTypeStep = 0;
    form.Explanation().SetVisible(form.ShowTypeStep != 0);
    form.Record().SetVisible(form.ShowTypeStep != 2);
    form.outside.settings.Save(u"ShowType", WholeText(form.ShowTypeStep));
}

void ClearFileCommand_Click(MainForm& form, int index) {
    if (index == 0) form.outside.files.EmptyErrorFile();
    if (index == 1 && !form.IsRunning()) ShowErrorFile(form);
}

}  // namespace commtest
