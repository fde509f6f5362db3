#include "cli/check_families.h"

#include <algorithm>
#include <cstdint>

#include "numbers/crc16.h"
#include "numbers/lrc.h"
#include "protocol_native/check_words.h"
#include "protocol_special/hct615d_checks.h"
#include "protocol_special/novax_check_word.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

constexpr int kByteWidth = 3;
constexpr int kCharactersOfWord = 2;

[[noreturn]] void Refuse(TextView reason) { throw FrameRefusal{Text(reason)}; }

Text PlaceOf(std::size_t index, const Text& text) {
    Text place = u"第 ";
    place += WholeText(static_cast<int>(index + 1));
    place += u" 个字符 \"";
    place += text[index];
    return place + u"\" ";
}

bool IsHexDigit(char16_t character) { return HexPairValue(Text(1, character)).has_value(); }

// --- Frames of characters ---

Text WithoutLineEnd(Text frame) {
    for (const TextView end : {TextView(u"\\0A"), TextView(u"\n"), TextView(u"\\0D"), TextView(u"\r")}) {
        if (frame.ends_with(end)) frame.resize(frame.size() - end.size());
    }
    return frame;
}

Text LineOf(const Text& frame, char16_t start, int shortest) {
    Text line = WithoutLineEnd(frame);
    if (!line.starts_with(start)) {
        Text reason = u"帧不以 \"?\" 开头";
        reason[reason.find(u'?')] = start;
        Refuse(reason);
    }
    if (Len(line) < shortest) Refuse(u"帧太短");
    return line;
}

template <Text (*kWord)(const Text& covered)>
CheckFinding FindingAtEnd(const Text& line) {
    return {Right(line, kCharactersOfWord), kWord(Left(line, Len(line) - kCharactersOfWord))};
}

template <void (*kMake)(HexText& frame)>
Text NativeWord(const Text& covered) {
    HexText frame = HexTextOfReadable(covered);
    kMake(frame);
    return ReadableOf(Right(frame, kCharactersOfWord * kByteWidth));
}

constexpr char16_t kNativeStart = u'@';
constexpr int kShortestNative = 2;

template <void (*kMake)(HexText& frame)>
Text NativeWordOf(const Text& frame) {
    return NativeWord<kMake>(LineOf(frame, kNativeStart, kShortestNative));
}

template <void (*kMake)(HexText& frame)>
CheckFinding NativeFindingIn(const Text& frame) {
    return FindingAtEnd<NativeWord<kMake>>(LineOf(frame, kNativeStart, kShortestNative + kCharactersOfWord));
}

// A reply ends in its check word, a request in two or more zeros behind it. Zeros can also be data or check
// word: a reading that is right counts.
CheckFinding FilledFindingIn(const Text& frame) {
    constexpr int kShortestFill = 2;
    const Text line = LineOf(frame, kNativeStart, kShortestNative + kCharactersOfWord);
    const CheckFinding ofReply = FindingAtEnd<NativeWord<MakeCRCWordTq>>(line);
    const int zeros = Len(line) - static_cast<int>(line.find_last_not_of(u'0')) - 1;
    const int longestFill = std::min(zeros, Len(line) - kShortestNative - kCharactersOfWord);
    if (ofReply.IsRight() || longestFill < kShortestFill) return ofReply;
    for (int fill = longestFill; fill > kShortestFill; --fill) {
        const auto ofRequest = FindingAtEnd<NativeWord<MakeCRCWordTq>>(Left(line, Len(line) - fill));
        if (ofRequest.IsRight()) return ofRequest;
    }
    return FindingAtEnd<NativeWord<MakeCRCWordTq>>(Left(line, Len(line) - kShortestFill));
}

// The two digits of the wire, where the window shows the three of 256.
template <Text (*kWord)(Text)>
Text AsciiWord(const Text& covered) {
    return FittedToWidth(kWord(covered), kCharactersOfWord);
}

Text AsciiLineOf(const Text& frame, int shortest) {
    Text line = LineOf(frame, u':', shortest);
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (!IsHexDigit(line[i])) Refuse(PlaceOf(i, line) + u"不是十六进制数字");
    }
    if (line.size() % 2 == 0) Refuse(u"十六进制数字的个数是单数");
    return line;
}

constexpr int kShortestAscii = 3;

template <Text (*kWord)(Text)>
Text AsciiWordOf(const Text& frame) {
    return AsciiWord<kWord>(AsciiLineOf(frame, kShortestAscii));
}

template <Text (*kWord)(Text)>
CheckFinding AsciiFindingIn(const Text& frame) {
    return FindingAtEnd<AsciiWord<kWord>>(AsciiLineOf(frame, kShortestAscii + kCharactersOfWord));
}

// --- Frames of bytes ---

HexText BytesOf(const Text& frame) {
    HexText bytes;
    Text digit;
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const bool isBetween = frame[i] == u' ' && digit.empty();
        if (isBetween) continue;
        if (!IsHexDigit(frame[i])) Refuse(PlaceOf(i, frame) + u"不是十六进制数字");
        digit += frame[i];
        if (digit.size() < 2) continue;
        AppendHexByte(bytes, *HexPairValue(digit));
        digit.clear();
    }
    if (!digit.empty()) Refuse(u"十六进制数字的个数是单数");
    return bytes;
}

int CountOf(const HexText& bytes) { return Len(bytes) / kByteWidth; }

HexText Cut(const HexText& bytes, int first, int count) {
    return Mid(bytes, kByteWidth * (first - 1) + 1, kByteWidth * count);
}

Text Shown(const HexText& bytes) { return Mid(bytes, 2, Len(bytes)); }

int ByteAt(const HexText& bytes, int number) { return *HexPairValue(Mid(bytes, kByteWidth * number - 1, 2)); }

HexText CrcOf(const HexText& bytes) {
    Crc16 crc;
    for (int byte = 1; byte <= CountOf(bytes); ++byte)
        crc.Fold(static_cast<std::uint8_t>(ByteAt(bytes, byte)));
    HexText word;
    AppendHexByte(word, crc.First());
    AppendHexByte(word, crc.Second());
    return word;
}

HexText RtuWord(const HexText& covered) {
    if (CountOf(covered) < 2) Refuse(u"帧太短");
    return CrcOf(covered);
}

// A request of six bytes or a reply of eight.
HexText NovaxWord(const HexText& covered) {
    constexpr int kRequest = 6;
    constexpr int kReply = 8;
    constexpr int kAddressOffset = 128;
    if (CountOf(covered) == kRequest) {
        const int address = ByteAt(covered, 1) - kAddressOffset;
        if (address < 0) Refuse(u"请求的第 1 字节是地址加 80，不会小于 80");
        HexText frame = covered;
        MakeCRCWordNOVAX(frame, WholeText(address));
        return Cut(frame, kRequest + 1, 2);
    }
    if (CountOf(covered) != kReply) Refuse(u"NOVAX 的帧连同校验码为 8 字节 (请求) 或 10 字节 (回答)");
    int sum = 0;
    for (int byte = 1; byte <= kReply; ++byte) sum += ByteAt(covered, byte);
    HexText word;
    AppendHexByte(word, sum & 0xFF);
    AppendHexByte(word, sum >> 8);
    return word;
}

constexpr int kHct615dRequest = 12;
constexpr int kHct615dReply = 58;
constexpr int kHct615dTail = 4;  // of a reply, behind the check bytes

HexText Hct615dWord(const HexText& bytes) {
    constexpr int kLeadOfRequest = 7;
    constexpr int kLeadOfReply = 34;
    const int count = CountOf(bytes);
    if (count != kHct615dRequest && count != kHct615dReply) {
        Refuse(u"HCT615D 的帧连同校验码为 14 字节 (请求) 或 64 字节 (回答)");
    }
    const int lead = count == kHct615dRequest ? kLeadOfRequest : kLeadOfReply;
    return Hct615dCheckBytes(Cut(bytes, lead + 1, count - lead));
}

template <HexText (*kWord)(const HexText& covered)>
Text ByteWordOf(const Text& frame) {
    return Shown(kWord(BytesOf(frame)));
}

template <HexText (*kWord)(const HexText& covered)>
CheckFinding FindingInBytes(const HexText& bytes) {
    constexpr int kBytesOfWord = 2;
    const int covered = CountOf(bytes) - kBytesOfWord;
    const HexText word = kWord(Cut(bytes, 1, std::max(covered, 0)));
    return {Shown(Cut(bytes, covered + 1, kBytesOfWord)), Shown(word)};
}

template <HexText (*kWord)(const HexText& covered)>
CheckFinding ByteFindingIn(const Text& frame) {
    return FindingInBytes<kWord>(BytesOf(frame));
}

CheckFinding Hct615dFindingIn(const Text& frame) {
    constexpr int kBytesOfWord = 2;
    const HexText bytes = BytesOf(frame);
    const bool isReply = CountOf(bytes) == kHct615dReply + kBytesOfWord + kHct615dTail;
    return FindingInBytes<Hct615dWord>(isReply ? Cut(bytes, 1, kHct615dReply + kBytesOfWord) : bytes);
}

}  // namespace

const std::vector<CheckFamily>& CheckFamilies() {
    static const std::vector<CheckFamily> kFamilies = {
        {u"native", NativeWordOf<MakeCRCWordTq>, NativeFindingIn<MakeCRCWordTq>},
        {u"native-sum", NativeWordOf<MakeCRCWordTqTwo>, NativeFindingIn<MakeCRCWordTqTwo>},
        {u"native-fill", NativeWordOf<MakeCRCWordTq>, FilledFindingIn},
        {u"modbus-ascii", AsciiWordOf<LrcOfPairs>, AsciiFindingIn<LrcOfPairs>},
        {u"modbus-ascii-bcd", AsciiWordOf<LrcOfChars>, AsciiFindingIn<LrcOfChars>},
        {u"modbus-rtu", ByteWordOf<RtuWord>, ByteFindingIn<RtuWord>},
        {u"novax", ByteWordOf<NovaxWord>, ByteFindingIn<NovaxWord>},
        {u"hct615d", ByteWordOf<Hct615dWord>, Hct615dFindingIn},
    };
    return kFamilies;
}

const CheckFamily* CheckFamilyNamed(QStringView name) {
    const auto& families = CheckFamilies();
    const auto found = std::find_if(families.begin(), families.end(),
                                    [name](const CheckFamily& family) { return family.name == name; });
    return found == families.end() ? nullptr : &*found;
}

}  // namespace commtest
