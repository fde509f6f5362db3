#include "session/instrument_codec.h"

#include <gtest/gtest.h>

#include "numbers/register_codecs.h"
#include "session/conversation.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

TEST(InstrumentCodec, LengthChoosesTheFormatOfAReading) {
    EXPECT_EQ(ReadFormatOfLength(u"1"), 7);
    EXPECT_EQ(ReadFormatOfLength(u"2"), 0);
    EXPECT_EQ(ReadFormatOfLength(u"4"), 2);
    EXPECT_EQ(ReadFormatOfLength(u"8"), 8);
}

TEST(InstrumentCodec, LengthChoosesTheFormatOfAWrite) {
    EXPECT_EQ(WriteFormatOfLength(u"1"), 7);
    EXPECT_EQ(WriteFormatOfLength(u"2"), 0);
    EXPECT_EQ(WriteFormatOfLength(u"4"), 2);
}

TEST(InstrumentCodec, OtherLengthsLeaveTheTextAsItIs) {
    for (const Text& length : {Text(u"3"), Text(u"0"), Text(u"02"), Text(u" 2"), Text(u"16"), Text()}) {
        Text read = u"C800";
        CommCodeToValue(read, ReadFormatOfLength(length));
        EXPECT_EQ(ToUtf8(read), "C800") << ToUtf8(length);
        Text written = u"200";
        ValueToCommCode(written, WriteFormatOfLength(length));
        EXPECT_EQ(ToUtf8(written), "200") << ToUtf8(length);
    }
}

TEST(InstrumentCodec, AccumulatedValueIsReadOnly) {
    Text written = u"1100.5";
    ValueToCommCode(written, WriteFormatOfLength(u"8"));
    EXPECT_EQ(ToUtf8(written), "1100.5");
}

TEST(InstrumentCodec, FormatOfAnInstrumentIsInItsCode) {
    InstrumentInUse instrument;
    instrument.MeterCodeText = u"31110107";
    EXPECT_EQ(FormatOfInstrument(instrument), 11);
    instrument.MeterCodeText = u"41x10107";
    EXPECT_EQ(ErrorOf([&] { FormatOfInstrument(instrument); }), 13);
}

}  // namespace
}  // namespace commtest
