#include "protocol_special/novax_reply.h"

#include "runtime/number.h"
#include "session/conversation.h"
#include "session/decimal_point.h"
#include "session/grid_rows.h"
#include "session/verdict_words.h"

namespace commtest {

namespace {

bool IsWrite(const HexText& request) { return Mid(request, 8, 2) == u"43"; }

// The digits of a byte of the reply, counted from 1.
Text DigitsOfByte(const HexText& reply, int byte) { return Mid(reply, 3 * byte - 1, 2); }

// Of two bytes of which the low one comes first.
Text DigitsOfWord(const HexText& reply, int lowByte) {
    return DigitsOfByte(reply, lowByte + 1) + DigitsOfByte(reply, lowByte);
}

void ShowDigits(Conversation& talk, int row, const Text& digits) {
    talk.ParameterGrid().SetCell(row, column::kGroupRead, digits);
    talk.FilledRows.Add(row);
}

void ShowWordValue(Grid& grid, int row, const Text& digits) {
    Text value = WholeText(HexParse(digits));
    grid.SetCell(row, column::kValue, value);
    if (grid.Cell(row, column::kDecimals) != u"0") ApplyDecimalPoint(grid, row, value, true);
    grid.SetCell(row, column::kScaledValue, value);
}

void ShowByteValue(Grid& grid, int row, const Text& digits) {
    const Text value = WholeText(HexParse(digits));
    grid.SetCell(row, column::kValue, value);
    grid.SetCell(row, column::kScaledValue, value);
}

void FillStatusWord(Conversation& talk, int row, const Text& digits) {
    ShowDigits(talk, row, digits);
    ShowWordValue(talk.ParameterGrid(), row, digits);
}

void FillStatusByte(Conversation& talk, int row, const Text& digits) {
    ShowDigits(talk, row, digits);
    ShowByteValue(talk.ParameterGrid(), row, digits);
}

void FillParameter(Conversation& talk, const Text& digits) {
    const int row = talk.CurrentRow;
    Grid& grid = talk.ParameterGrid();
    ShowDigits(talk, row, digits);
    if (grid.Cell(row, column::kAttribute) != u"S") ShowWordValue(grid, row, digits);
    talk.CurrentRow = Add16(talk.CurrentRow, 1);  // Q200
}

}  // namespace

Verdict JudgeNovaxReply(const Exchange& exchange) {
    Verdict verdict;
    if (!exchange.HasEnded()) return verdict;
    verdict.check = CheckWord::Right;  // Q198
    verdict.answer = IsWrite(exchange.request) ? Answer::Written : Answer::Data;
    verdict.decodes = true;
    return verdict;
}

Text WordsOnNovaxReply(const Exchange& exchange, const Verdict& verdict, const Texts&) {
    // Q199
    return WordsOnCheckWord(verdict.check) + u"     读取 " + exchange.address + u"# 仪表的静态数据";
}

void TestCRCWordNOVAX(Conversation& talk, const HexText& reply) {
    FillStatusWord(talk, 6, DigitsOfWord(reply, 1));
    FillStatusWord(talk, 7, DigitsOfWord(reply, 3));
    FillStatusByte(talk, 8, DigitsOfByte(reply, 5));
    FillStatusByte(talk, 9, DigitsOfByte(reply, 6));
    FillParameter(talk, DigitsOfWord(reply, 7));
}

}  // namespace commtest
