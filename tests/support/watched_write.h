#pragma once

#include <memory>

#include "commissioning/write_watch.h"
#include "session/main_form.h"

namespace commtest::testing {

// Writes to the parameter grid of a form that watches them, and what comes of them, without a line.
struct WatchedWrite {
    explicit WatchedWrite(MainForm& theForm) : form(theForm), watch(theForm) {}

    // Row by row as a native instrument has it: two bytes, read and written.
    void LayOut(int rows) {
        form.ProtocolCode = 11;
        form.ParameterGrid().SetSize(rows + 1, column::kCount);
        for (int row = 1; row <= rows; ++row) {
            form.ParameterGrid().SetCell(row, column::kAddress, u"0123");
            form.ParameterGrid().SetCell(row, column::kLength, u"2");
            form.ParameterGrid().SetCell(row, column::kAttribute, u"RW");
            form.ParameterGrid().SetCell(row, column::kDecimals, u"0");
        }
    }
    void Enter(int row, const Text& value) {
        form.ParameterGrid().SetCell(row, column::kNewValue, value);
        form.SendText = u" 41";
        watch.Begin(row);
        watch.Follow();
    }
    void Answers(Answer answer, Ending ending = Ending::Complete, CheckWord check = CheckWord::Right) {
        Outcome outcome;
        outcome.exchange.request = form.SendText;
        outcome.exchange.ending = ending;
        outcome.exchange.address = u"1";
        outcome.verdict.answer = answer;
        outcome.verdict.check = check;
        outcome.verdict.word = answer == Answer::Refused ? u"**" : u"##";
        Add(outcome);
    }
    void IsSilent() { Answers(Answer::Unknown, Ending::Silent, CheckWord::NotJudged); }
    void Reads(int row, const Text& value) {
        form.ParameterGrid().SetCell(row, column::kScaledValue, value);
        Outcome outcome;
        outcome.verdict.answer = Answer::Data;
        outcome.verdict.check = CheckWord::Right;
        outcome.exchange.addressText = form.AddressText;
        outcome.rows.Add(row);
        Add(outcome);
    }

    MainForm& form;
    WriteWatch watch;

  private:
    void Add(const Outcome& outcome) {
        form.Outcomes.Add(std::make_shared<const Outcome>(outcome));
        watch.Follow();
    }
};

}  // namespace commtest::testing
