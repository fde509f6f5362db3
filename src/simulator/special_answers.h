#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "simulator/instrument_parts.h"

// What the instruments of the two special protocols answer: contents of replies, in bytes. Every reply holds
// the values of the sixth to the ninth row, one behind the other. A value is rounded and held at the end of
// the range of its field; a row that is not there counts as 0.
namespace simulator {

// The sixth and the seventh row in two's complement of two bytes, the low one first; the eighth and the ninth
// in a byte each, 0 to 255; at last, like the first two, the parameter that the request names by its number:
// the first row from the tenth on whose address ends in that number. A number that no row has reads 0.
//
// The answer to a write tells the data as they were sent, whether they are taken or not.
Answer AnswerToNovax(std::vector<Row>& rows, std::string_view request, double seconds);

// The answer to a write that is not taken; nothing for a read.
std::optional<Answer> NovaxRefusalOf(const std::vector<Row>& rows, std::string_view request, double seconds);

// Decimal digits, two a byte, the high ones first: four, four, six and eight of them.
Answer AnswerToHct615d(const std::vector<Row>& rows, double seconds);

// How a value of every reply lives if nobody says it; nothing for the rows, counted from 0, that no reply of
// that model always holds.
std::optional<Behaviour> LifeInEveryReply(const Model& model, std::size_t row);

}  // namespace simulator
