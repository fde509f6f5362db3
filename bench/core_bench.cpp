// What the core costs, without a line: codecs, check words, builders, and the whole exchange in virtual time
// with few and many frames behind it.

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

#include "numbers/register_codecs.h"
#include "protocol_modbus/rtu_frame.h"
#include "protocol_modbus/rtu_reply_rows.h"
#include "protocol_native/check_words.h"
#include "protocol_native/read_requests.h"
#include "protocol_native/write_requests.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "session/polling_cycle.h"
#include "support/bench_session.h"

namespace {

using namespace commtest;
using namespace commtest::testing;

const std::vector<TestParameter>& Parameters() {
    static const std::vector<TestParameter> parameters = [] {
        std::vector<TestParameter> rows(5, {u"命令", u"0000", u"3", u"W", u"0"});
        rows.push_back({u"测量值", u"0010", u"2", u"D", u"1"});
        rows.push_back({u"流量", u"0012", u"4", u"D", u"0"});
        for (int i = 0; i < 60; ++i) {
            Text address = HexOf(0x20 + 2.0 * i);
            rows.push_back({u"参数", FittedToWidth(address, 4), u"2", u"RW", WholeText(i % 4)});
        }
        return rows;
    }();
    return parameters;
}

std::string Framed(const std::string& frame) {
    Text hex = u" 40";
    for (const char c : frame) AppendHexByte(hex, static_cast<unsigned char>(c));
    MakeCRCWordTq(hex);
    return BytesOfHex(ToUtf8(hex)) + '\r';
}

// An instrument and what it answers to a frame.
struct PolledInstrument {
    Text protocol;
    Text code;
    std::vector<TestParameter> parameters;
    std::function<std::string(const std::string& frame)> answer;
};

// Answers RD with two values and RR with sixty.
PolledInstrument Native() {
    std::string data = "01RR";
    for (int i = 0; i < 60; ++i) data += "D204";
    return {
        u"TQ仪表协议", u"110100", Parameters(),
        [dynamicReply = Framed("01RDC80007C90000"), staticReply = Framed(data)](const std::string& frame) {
            return frame.compare(3, 2, "RD") == 0 ? dynamicReply : staticReply;
        }};
}

// Four status values and sixty parameters, which are walked; a reply brings one of them.
PolledInstrument Novax() {
    std::vector<TestParameter> parameters =
        BehindFiveCommands(std::vector<TestParameter>(4, {u"状态", u"0001", u"2", u"R", u"1"}));
    for (int i = 0; i < 60; ++i) {
        const Text address = FittedToWidth(HexOf(0x10 + i), 4);
        parameters.push_back({u"参数", address, u"2", u"RW", WholeText(i % 4)});
    }
    return {u"TQ特殊仪表协议-NOVAX", u"410100", parameters,
            [reply = BytesOfHex("34 12 D2 84 05 80 D2 04 00 00")](const std::string&) { return reply; }};
}

// Bytes 59 and 60 of its reply are the sum and the exclusive or of bytes 35 to 58.
PolledInstrument FlowMeter() {
    std::string reply = std::string(47, '\x55') + BytesOfHex("12 34 12 34 12 34 56 12 34 56 78");
    char sum = 0;
    char exclusiveOr = 0;
    for (const char byte : reply.substr(34)) {
        sum = static_cast<char>(sum + byte);
        exclusiveOr = static_cast<char>(exclusiveOr ^ byte);
    }
    reply += {sum, exclusiveOr, '\x0D', '\x0A', '\x0D', '\x0A'};
    return {u"TQ特殊仪表协议-HCT615D", u"420100",
            BehindFiveCommands(std::vector<TestParameter>(4, {u"测量值", u"0010", u"2", u"R", u"0"})),
            [reply](const std::string&) { return reply; }};
}

void StartPolling(BenchSession& bench, const PolledInstrument& instrument) {
    bench.Add(u"仪表", instrument.protocol, instrument.code, instrument.parameters);
    bench.Choose(instrument.protocol, u"仪表");
    bench.line.Answer = [answer = instrument.answer](const std::string& frame) {
        return std::vector<Arrival>{{1, answer(frame)}};
    };
    bench.line.KeepsFrames = false;
    bench.Form().ConDelayTime.Set(u"1");
    bench.Press(4);
}

void PollTo(BenchSession& bench, std::size_t frames) {
    bench.line.RunWhile([&] { return bench.line.FrameCount() < frames; }, INT64_MAX - 1);
}

// Whether those of the last thousand exchanges were good reads.
bool AreGoodReads(const OutcomeRing& outcomes) {
    for (std::size_t back = 0; back < outcomes.Size(); ++back) {
        if (!outcomes.Last(back)->verdict.IsGoodRead()) return false;
    }
    return outcomes.Size() > 0;
}

void BM_Exchange(benchmark::State& state, PolledInstrument (*instrument)()) {
    BenchSession bench;
    StartPolling(bench, instrument());
    auto frames = static_cast<std::size_t>(state.range(0));
    PollTo(bench, frames);
    for (auto _ : state) PollTo(bench, ++frames);
    const MainForm& form = bench.Form();
    if (form.CheckErrorCount + form.NoReplyCount + form.IncompleteCount != 0) {
        state.SkipWithError("replies were lost");
    } else if (!AreGoodReads(form.Outcomes)) {
        state.SkipWithError("replies were judged wrong");
    }
}
BENCHMARK_CAPTURE(BM_Exchange, native, Native)->Arg(50)->Arg(5000)->Arg(500000);
BENCHMARK_CAPTURE(BM_Exchange, novax, Novax)->Arg(50)->Arg(5000)->Arg(500000);
BENCHMARK_CAPTURE(BM_Exchange, flow_meter, FlowMeter)->Arg(50)->Arg(5000)->Arg(500000);

// --- A register of a reply: raw text, value and scaled text into the grid ---

constexpr int kRegisters = 100;

// A row of decimals, which holds 1, and a hundred registers; `decimals` is what they say of theirs.
void ChooseRegisters(BenchSession& bench, const Text& decimals) {
    std::vector<TestParameter> parameters = BehindFiveCommands({{u"小数点位置", u"0010", u"2", u"R", u"0"}});
    for (int i = 0; i < kRegisters; ++i) {
        parameters.push_back({u"寄存器", FittedToWidth(HexOf(0x100 + i), 4), u"2", u"RW", decimals});
    }
    bench.Add(u"仪表", u"ModBus-RTU协议", u"310100", parameters);
    bench.Choose(u"ModBus-RTU协议", u"仪表");
    bench.Form().ParameterGrid().SetCell(6, column::kValue, u"1");
}

void BM_DecodeRegister(benchmark::State& state, const char16_t* decimals) {
    BenchSession bench;
    ChooseRegisters(bench, decimals);
    // Q133: the last one is not taken.
    HexText reply = u" 01 03 CA";
    for (int i = 0; i < kRegisters + 1; ++i) AppendHexBytes(reply, {"\x04\xD2", 2});
    AppendRtuCrc(reply);
    MainForm& form = bench.Form();
    form.CommandCode = command::kReadSeveralRows;
    for (auto _ : state) {
        form.CurrentRow = 7;
        DecodeRtuRows(form, reply);
    }
    const Text wanted = decimals == Text(u"0") ? u"1234" : u"123.4";
    if (form.ParameterGrid().Cell(106, column::kScaledValue) != wanted) state.SkipWithError("decoded wrong");
    state.counters["register"] = benchmark::Counter(
        kRegisters, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK_CAPTURE(BM_DecodeRegister, whole, u"0");
BENCHMARK_CAPTURE(BM_DecodeRegister, scaled, u"0010");

// Distinct frames in the list of sent frames: finding one must not grow with it.
void BM_FindSentFrame(benchmark::State& state) {
    ListControl frames;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        frames.Add(u" 40 30 31 52 45" + HexTextOfReadable(WholeText(i)) + u" 0D");
    }
    const Text wanted = frames.At(static_cast<int>(state.range(0)) - 1);
    for (auto _ : state) benchmark::DoNotOptimize(frames.IndexOf(wanted));
}
BENCHMARK(BM_FindSentFrame)->Arg(50)->Arg(5000)->Arg(500000);

void BM_PutBlockOnTop(benchmark::State& state) {
    RecordPane pane;
    const Text block(200, u'字');
    for (std::int64_t i = 0; i < state.range(0); ++i) pane.PutOnTop({block});
    for (auto _ : state) pane.PutOnTop({block});
}
BENCHMARK(BM_PutBlockOnTop)->Arg(50)->Arg(5000)->Arg(500000)->Iterations(20000);

void BM_ValueToCommCode(benchmark::State& state) {
    for (auto _ : state) {
        Text value = u"-1234.5678";
        ValueToCommCode(value, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_ValueToCommCode)->Arg(0)->Arg(1)->Arg(2)->Arg(3)->Arg(5)->Arg(6)->Arg(7);

void BM_CommCodeToValue(benchmark::State& state, int format, const char* code) {
    const Text text = FromUtf8(code);
    for (auto _ : state) {
        Text value = text;
        CommCodeToValue(value, format);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK_CAPTURE(BM_CommCodeToValue, two_bytes, 0, "D284");
BENCHMARK_CAPTURE(BM_CommCodeToValue, custom_float, 2, "8B9A522B");
BENCHMARK_CAPTURE(BM_CommCodeToValue, ieee_single, 3, "4048F5C3");
BENCHMARK_CAPTURE(BM_CommCodeToValue, bcd, 5, "0900000123");
BENCHMARK_CAPTURE(BM_CommCodeToValue, one_byte, 7, "C8");
BENCHMARK_CAPTURE(BM_CommCodeToValue, accumulated, 8, "04A0000007C90000");

template <void (*Make)(HexText&)>
void BM_CheckWord(benchmark::State& state) {
    const Text data = HexTextOfReadable(Text(static_cast<std::size_t>(state.range(0)), u'7'));
    for (auto _ : state) {
        Text frame = data;
        Make(frame);
        benchmark::DoNotOptimize(frame);
    }
}
BENCHMARK(BM_CheckWord<MakeCRCWordTq>)->Arg(5)->Arg(250);
BENCHMARK(BM_CheckWord<MakeCRCWordTqTwo>)->Arg(5)->Arg(250);

void BM_BuildReadRequest(benchmark::State& state) {
    BenchSession bench;
    bench.Add(u"仪表", u"TQ仪表协议", u"110100", Parameters());
    bench.Choose(u"TQ仪表协议", u"仪表");
    for (auto _ : state) {
        bench.Form().CommandCode = static_cast<std::int32_t>(state.range(0));
        BuildReadRequest(bench.Form());
    }
}
BENCHMARK(BM_BuildReadRequest)->Arg(10)->Arg(20)->Arg(50)->Arg(60);

void BM_BuildWriteFrame(benchmark::State& state) {
    BenchSession bench;
    bench.Add(u"仪表", u"TQ仪表协议", u"110100", Parameters());
    bench.Choose(u"TQ仪表协议", u"仪表");
    MainForm& form = bench.Form();
    form.ParameterGrid().Select(10, 10);
    form.InputText.Set(u"12.3");
    for (auto _ : state) BuildTqWriteRequest(form, bench.dialogs);
}
BENCHMARK(BM_BuildWriteFrame);

}  // namespace

BENCHMARK_MAIN();
