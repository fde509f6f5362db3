#include "catalogue/parameter_list.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

std::string Repaired(Text line, const Replacements& replacements) {
    RepairImportLine(line, replacements);
    return ToUtf8(line);
}

TEST(RepairImportLine, ReplacesTheFirstPlaceOfEachTextInTurn) {
    EXPECT_EQ(Repaired(u"报警报警", {{u"报警", u"告警"}}), "告警报警");
    EXPECT_EQ(Repaired(u"AB", {{u"A", u"B"}, {u"B", u"C"}}), "CB");
    EXPECT_EQ(Repaired(u"温度", {{u"压力", u"P"}}), "温度");
    EXPECT_EQ(Repaired(u"温 度", {{u" ", u""}}), "温度");
}

TEST(RepairImportLine, LeavesALineOfThreeScreensOrThreePhasesAlone) {
    EXPECT_EQ(Repaired(u"三相报警", {{u"报警", u"告警"}}), "三相报警");
    EXPECT_EQ(Repaired(u"三屏报警", {{u"报警", u"告警"}}), "三屏报警");
}

TEST(RepairImportLine, ThreePhasesThatAReplacementBringsEndIt) {
    EXPECT_EQ(Repaired(u"单位报警", {{u"单位", u"三相单位"}, {u"报警", u"告警"}}), "三相单位报警");
    EXPECT_EQ(Repaired(u"单位报警", {{u"报警", u"告警"}, {u"单位", u"三相单位"}}), "三相单位告警");
}

// --- The fields of a row ---

struct Cut {
    Text line;
    std::string fields;  // name, address, decimal point, attribute, limits
};

std::string FieldsOf(const Text& line) {
    const ListRow row = CutListRow(line);
    std::string fields;
    for (const Text& field :
         {row.name, row.address, row.decimalPoint, row.attribute, row.lowerLimit, row.upperLimit}) {
        fields += ToUtf8(field) + "|";
    }
    return fields;
}

TEST(CutListRow, TakesItsFieldsAtBlanksInOrder) {
    const Cut cuts[] = {
        {u"001  PV  1000  0  R  0  9999", "PV|1000|0|R|0|9999|"},
        {u"004 A 2010 1 RW -1999", "A|2010|1|RW|-1999||"},
        {u"1 X1Y 2010 1 RW 0 1 2 3", "X1Y|2010|1|RW|0|1|"},
        {u"PV 1000 2 RW", "PV|1000|2|RW|||"},
        {u"12PV 10002 RW", "PV|1000|2|RW|||"},
    };
    for (const Cut& cut : cuts) EXPECT_EQ(FieldsOf(cut.line), cut.fields);
}

TEST(CutListRow, SerialEndsAtTheFirstCharacterThatIsNoDigit) {
    EXPECT_EQ(FieldsOf(u"007通道 2010 0 R"), "通道|2010|0|R|||");
    EXPECT_EQ(FieldsOf(u"2号温度 2010 0 R"), "号温度|2010|0|R|||");
    EXPECT_EQ(FieldsOf(u"通道 2010 0 R"), "通道|2010|0|R|||");
}

TEST(CutListRow, SingleFieldBehindTheAddressIsTheAttribute) {
    EXPECT_EQ(FieldsOf(u"003  MODE  1020  R"), "MODE|1020|0|R|||");
}

TEST(CutListRow, NothingBehindTheAddressIsDecimalPoint0WithoutAttribute) {
    EXPECT_EQ(FieldsOf(u"003  MODE  1020"), "MODE|1020|0||||");
}

TEST(CutListRow, FirstFourHexadecimalDigitsAreTheAddressInANameToo) {
    EXPECT_EQ(FieldsOf(u"001  ABCD1  1020  0  R"), "|ABCD|1|1020|0|R|");
    EXPECT_EQ(FieldsOf(u"001  XFACE  1020  R"), "X|FACE|1020|R|||");
    EXPECT_EQ(FieldsOf(u"001  A BC D 1020  0  R"), "ABCD|1020|0|R|||");
}

TEST(CutListRow, WithoutAnAddressEverythingIsTheName) {
    EXPECT_EQ(FieldsOf(u"001  LOW LIMIT RW"), "LOWLIMITRW||0||||");
    EXPECT_EQ(FieldsOf(u""), "||0||||");
}

TEST(CutListRow, PercentAndBlankAreNoDigitsOfAnAddress) {
    EXPECT_EQ(FieldsOf(u"PV 12%4 2010 0 R"), "PV12%4|2010|0|R|||");
}

struct Colon {
    Text name;
    std::string filled;
};

TEST(CutListRow, TextsBehindAColonBeginAtTheSeventhPosition) {
    const Colon colons[] = {{u":HIGH", ":     HIGH"},   {u"LOW:ALARM", "LOW:  ALARM"},
                            {u"LOWER:X", "LOWER:X"},    {u"LOWEST:X", "LOWEST:X"},
                            {u"LO W : AL", "LOW:  AL"}, {u"A:B:C", "A:    B:C"}};
    for (const Colon& colon : colons) {
        EXPECT_EQ(ToUtf8(CutListRow(colon.name + u" 2010 1 RW").name), colon.filled);
    }
}

}  // namespace
}  // namespace commtest
