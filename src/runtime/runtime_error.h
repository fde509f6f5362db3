#pragma once

#include <exception>
#include <utility>

#include "runtime/text.h"

namespace commtest {

// A run-time error: thrown where the fault is, handled at the event boundary (session/events.h) or by
// routines that pass over errors (PassOverErrors).
class RuntimeError : public std::exception {
  public:
    static constexpr int kInvalidArgument = 5;  // 无效的过程调用或参数
    static constexpr int kOverflow = 6;         // 溢出
    static constexpr int kSubscript = 9;        // 下标越界
    static constexpr int kTypeMismatch = 13;    // 类型不匹配
    static constexpr int kBadFile = 52;         // 文件名或文件号错误
    static constexpr int kFileNotFound = 53;    // 文件未找到
    static constexpr int kPastEndOfFile = 62;   // 输入超出文件尾
    static constexpr int kPathNotFound = 76;    // 路径未找到
    static constexpr int kStore = 3146;         // a statement of the store failed

    explicit RuntimeError(int number);

    // A failing statement of the store, with the engine's own text.
    static RuntimeError OfStore(Text engineText);

    int Number() const { return number_; }
    const Text& Message() const { return message_; }

    // What the user is shown: number and message, or the store's word and the engine's text.
    Text StandardMessage() const;

    const char* what() const noexcept override { return "run-time error"; }

  private:
    RuntimeError(int number, Text message) : number_(number), message_(std::move(message)) {}

    int number_;
    Text message_;
};

// Runs one statement with run-time errors set aside.
template <typename Step>
void PassOverError(Step&& step) {
    try {
        step();
    } catch (const RuntimeError&) {
    }
}

// Runs statements one by one: one that fails is passed over and the next one runs.
template <typename... Steps>
void PassOverErrors(Steps&&... steps) {
    (PassOverError(std::forward<Steps>(steps)), ...);
}

// A condition in such a routine: one that fails counts as not met.
template <typename Condition>
bool IsMet(Condition&& condition) {
    try {
        return condition();
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace commtest
