#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "runtime/text.h"

// JSON on its way out, as UTF-8. What PrintableText shows by its code is escaped: a result steers no
// terminal.
namespace commtest {

// The parts of the outer arrays and objects, down to so many, stand in lines of their own, each depth
// indented further; what lies deeper stands in one line.
struct JsonLayout {
    int brokenDepths;
    std::size_t indent;
};

inline constexpr JsonLayout kJsonInOneLine = {0, 0};
inline constexpr JsonLayout kJsonLineAnElement = {1, 2};
inline constexpr JsonLayout kJsonInLines = {std::numeric_limits<int>::max(), 4};

// Writes arrays and objects part by part, a line end behind each outermost one; members in the order they
// come.
class JsonWriter {
  public:
    explicit JsonWriter(const JsonLayout& layout) : layout_(layout) {}

    // What was written since the last time.
    std::string Take();

    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }
    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }

    // The name of a member, whose value comes next.
    void PutKey(TextView key);

    void PutText(TextView text);
    void PutNumber(std::int64_t number);
    void PutYesNo(bool isYes);
    void PutNull();

    void PutText(TextView key, TextView text);
    void PutNumber(TextView key, std::int64_t number);
    void PutYesNo(TextView key, bool isYes);

  private:
    enum class Place { First, Later, BehindKey };  // in the array or object

    bool IsBroken() const { return depth_ > 0 && depth_ <= layout_.brokenDepths; }
    void Begin(char bracket);
    void End(char bracket);
    void BeginPart();
    void BreakLine();

    JsonLayout layout_;
    int depth_ = 0;
    Place place_ = Place::First;
    std::string written_;
};

}  // namespace commtest
