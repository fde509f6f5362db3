#pragma once

#include "support/bench_session.h"

namespace commtest::testing {

// Frames of a native instrument (code 11) at address 1, their check words worked by hand.
namespace frames {
inline const std::string kReadDynamic = "40 30 31 52 44 31 37 0D";
inline const std::string kDynamicReply =
    "40 30 31 52 44 43 38 30 30 36 34 30 30 36 45 0D";                              // C800, 6400: 200, 100
inline const std::string kDynamicPart = "40 30 31 52 44 43 38 30 30 36 43 0A";      // C800, to be continued
inline const std::string kDynamicLastPart = "40 30 31 52 44 36 34 30 30 31 35 0D";  // 6400
inline const std::string kReadStatic = "40 30 31 52 52 30 31 0D";
inline const std::string kStaticReply =
    "40 30 31 52 52 43 38 30 30 36 34 30 30 37 38 0D";                                 // C800, 6400: 200, 100
inline const std::string kReadFirstRow = "40 30 31 52 45 30 31 32 33 30 32 31 34 0D";  // 0123, two bytes
inline const std::string kFirstRowReply = "40 30 31 52 45 43 38 30 30 36 44 0D";       // C800
inline const std::string kWriteFirstRow = "40 30 31 57 32 30 31 32 33 43 38 30 30 31 46 0D";  // C800
inline const std::string kTaken = "40 30 31 23 23 30 31 0D";
inline const std::string kRefused = "40 30 31 2A 2A 30 31 0D";
inline const std::string kContinue = "0A";
}  // namespace frames

inline const Text kNativeProtocol = u"TQ仪表协议";

// A stopped session with that instrument chosen. Its parameters: 1 给定值 (RW, "0123", two bytes), 2 报警值
// (RW, one decimal), 3 启动 (a command), 4 小数点 (RW), 5 版本 (R), 6 测量值 and 7 输出值 (D).
class NativeBench : public BenchSession {
  public:
    explicit NativeBench(const Face& face = kChineseFace,
                         std::unique_ptr<Store> catalogue = MakeEmptyCatalogue())
        : BenchSession(face, std::move(catalogue)) {
        Add(u"仪表甲", kNativeProtocol, u"1101",
            {{u"给定值", u"0123", u"2", u"RW", u"0"},
             {u"报警值", u"0125", u"2", u"RW", u"1"},
             {u"启动", u"0000", u"3", u"W", u"0"},
             {u"小数点", u"0127", u"1", u"RW", u"0"},
             {u"版本", u"0128", u"2", u"R", u"0"},
             {u"测量值", u"0200", u"2", u"D", u"0"},
             {u"输出值", u"0202", u"2", u"D", u"0"}});
        Choose(kNativeProtocol, u"仪表甲");
    }

    // Button 4, pressed when it reads so: the first frame leaves 300 ms later.
    void Start() { Press(4); }
    void Stop() { Press(4); }

    // `hex` arrives `delay` ms behind each frame that goes out.
    void AnswersEachFrame(const std::string& hex, std::int64_t delay = 1) {
        line.Answer = [=](const std::string&) { return std::vector<Arrival>{{delay, BytesOfHex(hex)}}; };
    }

    // `hex` arrives in one receive event at `time`, whatever was sent.
    void ArrivesAt(std::int64_t time, const std::string& hex) {
        line.At(time, [this, hex] { line.Arrives(BytesOfHex(hex)); });
    }

    std::int16_t Step() { return Form().CycleStep; }
};

}  // namespace commtest::testing
