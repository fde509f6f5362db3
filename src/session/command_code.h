#pragma once

#include <cstdint>

// What Operation::CommandCode can hold. The routines test its ranges each with a bound of its own, and the
// write offset is taken off by subtraction in one family and by remainder in others (Q45).
namespace commtest::command {

// Plain repeated operations.
inline constexpr std::int32_t kReadDynamic = 10;
inline constexpr std::int32_t kReadStatic = 20;
inline constexpr std::int32_t kReadAlternating = 30;  // taken as the dynamic turn
inline constexpr std::int32_t kReadDynamicTurn = 31;  // alternate: a dynamic read, then kReadStaticTurn
inline constexpr std::int32_t kReadStaticTurn = 32;   // alternate: a static read, then kReadDynamicTurn
inline constexpr std::int32_t kSendLineFeed = 33;     // nothing sets it (Q46)
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

// Bounds.
inline constexpr std::int32_t kTimeOutsRoutedBelow = 1000;   // the cycle routes a reply that has timed out
inline constexpr std::int32_t kRecordKeptShortBelow = 1000;  // the housekeeping of each fiftieth frame
inline constexpr std::int32_t kSentThoughStoppedAbove =
    1000;                                             // a stopped session sends its frame all the same
inline constexpr std::int32_t kFirstOfSearch = 1001;  // a search steps on, and notes what it hears
inline constexpr std::int32_t kLastOfSearch = 9999;
inline constexpr std::int32_t kNativeSearchAbove = 1000;   // the native builder reads dynamic data
inline constexpr std::int32_t kReplayBuiltAbove = 10000;   // the frame comes from the script
inline constexpr std::int32_t kReplaySentAbove = 10000;    // the reply comes from the script
inline constexpr std::int32_t kNothingSentAbove = 100000;  // no more than the line is composed

}  // namespace commtest::command
