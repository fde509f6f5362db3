#pragma once

#include <cstdint>

// What MainForm::CommandCode can hold. The routines test its ranges each with bounds of their own (below
// 1000, 1001 to 9999, above 1000, above 10000), and the write offset is taken off by subtraction in one
// family and by remainder in others; the instruments' sessions rely on these differences, so they share no
// helper.
namespace commtest::command {

// Plain repeated operations.
inline constexpr std::int32_t kReadDynamic = 10;
inline constexpr std::int32_t kReadStatic = 20;
inline constexpr std::int32_t kReadAlternating = 30;  // taken as the dynamic turn
inline constexpr std::int32_t kReadDynamicTurn = 31;  // alternate: a dynamic read, then kReadStaticTurn
inline constexpr std::int32_t kReadStaticTurn = 32;   // alternate: a static read, then kReadDynamicTurn
inline constexpr std::int32_t kSendLineFeed = 33;     // nothing sets it
inline constexpr std::int32_t kReadThisRow = 40;
inline constexpr std::int32_t kReadRowByRow = 50;
inline constexpr std::int32_t kReadSeveralRows = 60;
inline constexpr std::int32_t kReadBoardType = 80;
inline constexpr std::int32_t kTestFixedFrame = 90;
inline constexpr std::int32_t kTestRisingFrame = 91;

// Added to a plain operation.
inline constexpr std::int32_t kWriteOffset = 100;     // one frame of a write is ready in SendText
inline constexpr std::int32_t kSearchOffset = 1000;   // instrument search
inline constexpr std::int32_t kReplayOffset = 10000;  // replay, nothing reaches the line

}  // namespace commtest::command
