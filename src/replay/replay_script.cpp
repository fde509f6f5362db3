#include "replay/replay_script.h"

#include "catalogue/catalogue_lists.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/instrument_selection.h"
#include "host/dialogs.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/cycle_step.h"
#include "session/main_form.h"
#include "session/serial_link.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

constexpr int kRecordingTab = 3;
constexpr int kRecordingGrid = 2;

// Columns of the list of recordings, and of its statement for the frames.
constexpr int kListedInstrument = 2;
constexpr int kListedNote = 3;
constexpr std::size_t kRequest = 0;
constexpr std::size_t kReply = 1;
constexpr std::size_t kRow = 2;

void BeginReplay(MainForm& form) {
    form.CommandCode = Add32(form.CommandCode, command::kReplayOffset);
    if (form.IsRunning()) {
        form.NoteStop({StopCause::Replay});
        form.SetRunning(false);
    }
    form.SSTab2.Choose(kRecordingTab);
    form.PollTimer().SetEnabled(false);
    form.outside.dialogs.ShowMessage(u"请在 演示数据 表格里，双击选定的仪表名称，然后点击 开始通讯 按钮！",
                                     {});
}

void EndReplay(MainForm& form) {
    form.Focus.Ask(FocusWish::Target::Address);
    form.CommandCode %= command::kReplayOffset;
    LoadInstrumentNames(form);
}

void LoadScript(MainForm& form, const Text& instrument, const Text& note) {
    const StoreRows exchanges = InstrumentCatalogue(form.outside.store).FramesOfRecording(instrument, note);
    form.DemoInstrument = instrument;
    form.DemoNote = note;
    form.DemoFrames.clear();
    form.DemoReplies.clear();
    form.DemoRows.clear();
    for (std::size_t i = 0; i < exchanges.rows.size(); ++i) {
        form.DemoFrames.push_back(exchanges.At(i, kRequest));
        form.DemoReplies.push_back(exchanges.At(i, kReply));
        form.DemoRows.push_back(ToWhole16(exchanges.At(i, kRow)));
    }
}

Text Listed(const MainForm& form, int row, int column) {
    return form.MSHFlexGrid1[kRecordingGrid].Cell(row, column);
}

// Q224: under every note.
void RenameInstrument(MainForm& form, int row) {
    const Text name = UCase(form.outside.dialogs.AskText(u"仪表新名称", u"请输入新的仪表名称", {}));
    if (name.empty()) return;
    InstrumentCatalogue(form.outside.store)
        .RenameRecordedInstrument(name, Listed(form, row, kListedInstrument));
}

void ChangeNote(MainForm& form, int row) {
    const Text note = UCase(form.outside.dialogs.AskText(u"仪表新说明", u"请输入新的说明", {}));
    if (note.empty()) return;
    InstrumentCatalogue(form.outside.store).ChangeNote(note, Listed(form, row, kListedNote));
}

void Delete(MainForm& form, int row) {
    const Text instrument = Listed(form, row, kListedInstrument);
    const Text note = Listed(form, row, kListedNote);
    const Text question =
        u"你确定要删除 仪表名称是 <" + instrument + u"> ,说明是 <" + note + u"> 的演示数据吗？";
    if (!form.outside.dialogs.AskYesNo(question)) return;
    InstrumentCatalogue(form.outside.store).DeleteRecording(instrument, note);
}

std::size_t At(const MainForm& form) {
    const auto index = static_cast<std::size_t>(form.DemoIndex);
    if (index >= form.DemoFrames.size()) throw RuntimeError(RuntimeError::kSubscript);
    return index;
}

}  // namespace

void ConMyCommDriver_Click(MainForm& form) {
    form.ConDelayTime.Set(u"1000");  // Q222: the former one does not come back
    if (form.ConMyCommDriver.Value()) {
        BeginReplay(form);
    } else {
        EndReplay(form);
    }
}

void SelectRecording(MainForm& form, const Text& protocol, const Text& instrument, const Text& note) {
    form.ConCommTypeList.Set(protocol);
    RunIfSet(form.ConCommTypeList.Click);
    const StoreRows known = InstrumentCatalogue(form.outside.store).InstrumentCode(protocol, instrument);
    if (known.rows.empty()) {
        form.outside.dialogs.ShowMessage(u"仪表名称已经被改变,请右击鼠标,更改 仪表名称 ！", {});
        return;
    }
    form.InstrumentList().Set(instrument);
    RunIfSet(form.InstrumentList().Click);
    if (form.CommandCode > command::kReplayBuiltAbove) LoadScript(form, instrument, note);
    form.DemoIndex = 1;  // Q223: the first exchange waits for the second run
}

void TakeReplayFrame(MainForm& form) {
    if (form.DemoIndex >= static_cast<int>(form.DemoFrames.size())) form.DemoIndex = 0;
    form.SendText = form.DemoFrames[At(form)];
}

// As in all of the sending, a step that fails is passed over.
void ReplayReply(MainForm& form) {
    PassOverErrors([&] { form.ReplyText = form.DemoReplies[At(form)]; },
                   [&] { form.CurrentRow = form.DemoRows[At(form)]; },
                   [&] { form.DemoIndex = Add16(form.DemoIndex, 1); },
                   [&] { form.CycleStep = cycle_step::kReceiving; }, [&] { FindEndWord(form); },
                   [&] { form.PollTimer().SetEnabled(true); });
}

void DemoData_Click(MainForm& form, int index, int row) {
    if (index == 1) RenameInstrument(form, row);
    if (index == 2) ChangeNote(form, row);
    if (index == 4) Delete(form, row);
    SSTab2_Click(form);
}

}  // namespace commtest
