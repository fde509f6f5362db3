#include "commissioning/parameter_write.h"

#include "host/serial_port.h"
#include "session/grid_editing.h"
#include "session/main_form.h"

namespace commtest {

namespace {

void Click(MainForm& form, int row, int col) {
    form.ParameterGrid().Select(row, col);
    ClickParameterGrid(form);
}

}  // namespace

void ParameterWrite::Enter(MainForm& form) {
    Click(form, row_, column::kSingleRead);
    Click(form, row_, column::kNewValue);
    form.InputText.Set(value_);
    InputText_KeyDown(form, key::kEnter);
    NoteEntry(form);
}

void ParameterWrite::NoteEntry(const MainForm& form) {
    frame_ = form.SendText;
    addressText_ = form.AddressText;
    answer_ = nullptr;
    state_ = WriteOutcome::UnderWay;
}

bool ParameterWrite::HasHalfToCome(const MainForm& form) const {
    return state_ == WriteOutcome::Sent && (form.SecondHalfPending || form.AsciiSecondHalfPending);
}

void ParameterWrite::NoteOutcome(const MainForm& form, const OutcomePointer& outcome) {
    if (state_ == WriteOutcome::Held || outcome == nullptr) return;
    if (answer_ == nullptr && outcome->exchange.request == frame_) {
        NoteAnswer(outcome);
    } else if (outcome->verdict.IsGoodRead() && outcome->rows.Holds(row_) &&
               outcome->exchange.addressText == addressText_) {
        NoteRead(form);
    }
}

void ParameterWrite::NoteAnswer(const OutcomePointer& outcome) {
    answer_ = outcome;
    const Verdict& verdict = outcome->verdict;
    const bool isTaken = verdict.answer == Answer::Written && verdict.check == CheckWord::Right;
    if (verdict.answer == Answer::Refused && verdict.check != CheckWord::Wrong) {
        state_ = WriteOutcome::Refused;
    } else {
        state_ = isTaken ? WriteOutcome::Sent : WriteOutcome::Unconfirmed;
    }
}

void ParameterWrite::NoteRead(const MainForm& form) {
    if (state_ == WriteOutcome::UnderWay || state_ == WriteOutcome::Refused || !CanBeReadBack(form)) return;
    const Grid& grid = form.ParameterGrid();
    readBack_ = grid.Cell(row_, column::kScaledValue);
    const bool isSame = ShowSameNumber(value_, readBack_, grid.Cell(row_, column::kLength));
    state_ = isSame ? WriteOutcome::Equal : WriteOutcome::Different;
}

bool ParameterWrite::IsAnswered() const {
    return answer_ != nullptr && answer_->verdict.answer == Answer::Written;
}

void ParameterWrite::SettleWithoutRead() {
    if (state_ == WriteOutcome::Sent) state_ = WriteOutcome::Unconfirmed;
}

void ParameterWrite::SettleWithoutAnswer() {
    if (state_ == WriteOutcome::UnderWay) state_ = WriteOutcome::Unconfirmed;
}

bool ParameterWrite::CanBeAnswered(const MainForm& form) const {
    const bool hasLeft = form.UnderWay.request == frame_;
    return hasLeft ? form.IsRunning() || form.MSComm1.PortOpen() : form.SendText == frame_;
}

bool ParameterWrite::CanBeReadBack(const MainForm& form) const {
    const RowManner& rows = form.ProtocolInUse().rows;
    if (rows.whyUnreadable(form, row_) != Unreadable::No) return false;
    return rows.showsConstant == nullptr || !rows.showsConstant(form, row_);
}

void ReadRowNext(MainForm& form, int row) {
    form.CommandCode = command::kReadThisRow;
    Click(form, row, column::kSingleRead);
}

}  // namespace commtest
