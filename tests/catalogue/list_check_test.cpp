#include "catalogue/list_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "list_bench.h"
#include "runtime/code_page.h"

namespace commtest {
namespace {

using testing::BytesOfText;
using ::testing::IsEmpty;
using testing::ListBench;
using Kind = ListFinding::Kind;

std::string BytesOf(const std::vector<Text>& lines) {
    std::string bytes(kUtf8Mark);
    for (const Text& line : lines) bytes += ToUtf8(line) + "\r\n";
    return bytes;
}

struct Checked {
    std::vector<ListFinding> findings;
    int instruments;
    int parameters;
    bool endsImport;
};

Checked CheckOf(const InstrumentCatalogue& catalogue, const std::string& bytes) {
    std::vector<ListFinding> findings;
    ListCheck check(catalogue, std::make_unique<BytesOfText>(bytes),
                    [&](const ListFinding& finding) { findings.push_back(finding); });
    while (check.Step()) {
    }
    EXPECT_EQ(check.Findings(), static_cast<int>(findings.size()));
    return {findings, check.Instruments(), check.Parameters(), check.EndsImport()};
}

// line, name, value and other of a finding
std::string Words(const ListFinding& finding) {
    return std::to_string(finding.line) + "|" + ToUtf8(finding.name) + "|" + ToUtf8(finding.value) + "|" +
           ToUtf8(finding.other);
}

class ListCheckTest : public ::testing::Test, public ListBench {
  protected:
    Checked Check(const std::vector<Text>& lines) const { return CheckOf(catalogue, BytesOf(lines)); }

    // A block with these rows, the first of which is line 3.
    Checked CheckRows(const std::vector<Text>& rows, const Text& code = u"11000101") const {
        std::vector<Text> lines = {u"DEVICE METER", u"TYPE " + code};
        lines.insert(lines.end(), rows.begin(), rows.end());
        lines.emplace_back(u"END");
        lines.emplace_back(u"DEVICE   END");
        return Check(lines);
    }

    // Of a list with one finding.
    static void ExpectOne(const Checked& checked, Kind kind, const std::string& words) {
        ASSERT_EQ(checked.findings.size(), 1U);
        EXPECT_EQ(checked.findings[0].kind, kind);
        EXPECT_EQ(Words(checked.findings[0]), words);
    }
};

TEST_F(ListCheckTest, GoodListHasNoFindings) {
    const Checked checked = CheckRows({u"001  PV  1000  0  R  0  9999",
                                       u"002  LOW:ALARM  2010  1  RW  -199.9  9999", u"003  MODE  1020  R"});
    EXPECT_THAT(checked.findings, IsEmpty());
    EXPECT_EQ(checked.instruments, 1);
    EXPECT_EQ(checked.parameters, 3);
    EXPECT_FALSE(checked.endsImport);
}

TEST_F(ListCheckTest, NameThatHoldsEndEndsTheBlock) {
    const Checked checked = CheckRows({u"001  TREND  1010  0  R", u"002  SV  1012  0  R"});
    ExpectOne(checked, Kind::NameEndsBlock, "3|001  TREND  1010  0  R||");
    EXPECT_EQ(checked.parameters, 0);
}

TEST_F(ListCheckTest, DeviceThatHoldsEndEndsTheList) {
    const Checked checked = Check({u"DEVICE VENDOR-8", u"TYPE 11000101", u"END"});
    ExpectOne(checked, Kind::NameEndsList, "1|DEVICE VENDOR-8||");
    EXPECT_EQ(checked.instruments, 0);
}

TEST_F(ListCheckTest, PlainEndsAreNoFindings) {
    EXPECT_THAT(Check({u"DEVICE A", u"TYPE 11000101", u"END of block", u"DEVICE   END   ; end"}).findings,
                IsEmpty());
    EXPECT_THAT(Check({u"DEVICE A", u"TYPE 11000101", u"DEVICE END"}).findings, IsEmpty());
}

TEST_F(ListCheckTest, HeadInsideABlockBecomesARow) {
    ExpectOne(CheckRows({u"DEVICE  NEXT"}), Kind::HeadInsideBlock, "3|DEVICENEXT||");
}

TEST_F(ListCheckTest, RemarkInsideABlockBecomesARow) {
    ExpectOne(CheckRows({u"; remark"}), Kind::RemarkInsideBlock, "3|;REMARK||");
    EXPECT_THAT(CheckRows({u"", u"   ", u"007"}).findings, IsEmpty()) << "lines that hold nothing fall away";
}

TEST_F(ListCheckTest, NameIsCutToNothing) {
    const Checked checked = CheckRows({u"001  ABCD1  0  R"});
    ExpectOne(checked, Kind::NameCutToNothing, "3||ABCD|");
    EXPECT_EQ(checked.parameters, 0);
}

TEST_F(ListCheckTest, RowWithoutAnAddress) { ExpectOne(CheckRows({u"001  PV"}), Kind::NoAddress, "3|PV||"); }

TEST_F(ListCheckTest, DecimalPointThatIsNoNumber) {
    ExpectOne(CheckRows({u"001  PV  1010  X  R"}), Kind::DecimalPointNoNumber, "3|PV|X|");
}

TEST_F(ListCheckTest, AddressMetTwice) {
    ExpectOne(CheckRows({u"1 PV 1010 R", u"2 SV 1010 R"}), Kind::AddressTwice, "4|SV|1010|PV");
    EXPECT_THAT(CheckRows({u"1 A 2000 W", u"2 B 2000 W"}).findings, IsEmpty()) << "commands have no address";
    EXPECT_THAT(Check({u"DEVICE A", u"TYPE 11000101", u"1 PV 1010 R", u"END", u"DEVICE B", u"TYPE 11000101",
                       u"1 PV 1010 R", u"END"})
                    .findings,
                IsEmpty())
        << "each instrument has its own";
}

TEST_F(ListCheckTest, AddressThatOverlapsCountsInTheUnitOfItsProtocol) {
    const std::vector<Text> rows = {u"1 PV 2010 R", u"2 SV 2011 R"};
    ExpectOne(CheckRows(rows, u"11000101"), Kind::AddressOverlaps, "4|SV|2011|PV");
    EXPECT_THAT(CheckRows(rows, u"31000101").findings, IsEmpty()) << "two bytes are one register";
    ExpectOne(CheckRows({u"1 PV 4010 R", u"2 SV 4011 R"}, u"31000101"), Kind::AddressOverlaps,
              "4|SV|4011|PV");
    ExpectOne(CheckRows({u"1 SV 4011 R", u"2 PV 4010 R"}, u"31000101"), Kind::AddressOverlaps,
              "4|PV|4010|SV");
    EXPECT_THAT(CheckRows({u"1 PV 5010 R", u"2 SV 5011 R"}, u"22000101").findings, IsEmpty())
        << "one a parameter";
}

TEST_F(ListCheckTest, AttributeWithoutMeaning) {
    ExpectOne(CheckRows({u"1 PV 1010 0 RX"}), Kind::AttributeUnknown, "3|PV|RX|");
    ExpectOne(CheckRows({u"1 PV 1010"}), Kind::AttributeUnknown, "3|PV||");
    EXPECT_THAT(CheckRows({u"1 PV 1010 0 RWSD"}).findings, IsEmpty());
}

TEST_F(ListCheckTest, LimitsThatAreNoNumbers) {
    const Checked checked = CheckRows({u"1 PV 1010 0 RW LOW 9,9"});
    ASSERT_EQ(checked.findings.size(), 2U);
    EXPECT_EQ(Words(checked.findings[0]), "3|PV|LOW|");
    EXPECT_EQ(Words(checked.findings[1]), "3|PV|9,9|");
    EXPECT_EQ(checked.findings[1].kind, Kind::LimitNoNumber);
}

TEST_F(ListCheckTest, FieldsTooMany) {
    ExpectOne(CheckRows({u"1 PV 1010 0 RW 0 1 2"}), Kind::TooManyFields, "3|PV||");
}

TEST_F(ListCheckTest, NameOfMoreThanFortyBytes) {
    EXPECT_THAT(CheckRows({Text(20, u'温') + u" 1010 0 R"}).findings, IsEmpty());
    ExpectOne(CheckRows({Text(21, u'温') + u" 1010 0 R"}), Kind::NameTooLong,
              "3|" + ToUtf8(Text(21, u'温')) + "||");
}

TEST_F(ListCheckTest, UnknownProtocolAndClass) {
    ExpectOne(CheckRows({}, u"14000101"), Kind::ProtocolUnknown, "2|METER|14|");
    ExpectOne(CheckRows({}, u"11002901"), Kind::ClassUnknown, "2|METER|29|");
}

TEST_F(ListCheckTest, ProtocolThatTheFaceLacksIsUnknown) {
    const std::string bytes = BytesOf(
        {u"DEVICE METER", u"TYPE 23000101", u"END", u"DEVICE B", u"TYPE 35000101", u"END", u"DEVICE   END"});
    std::vector<std::string> found;
    ListCheck check(
        catalogue, std::make_unique<BytesOfText>(bytes),
        [&](const ListFinding& finding) { found.push_back(Words(finding)); }, kEnglishFace.switches);
    while (check.Step()) {
    }
    EXPECT_THAT(found, ::testing::ElementsAre("2|METER|23|", "5|B|35|"));
    EXPECT_THAT(CheckOf(catalogue, bytes).findings, IsEmpty());
}

TEST_F(ListCheckTest, TypeLineThatDoesNotComeWithinThirty) {
    std::vector<Text> lines = {u"DEVICE METER"};
    lines.insert(lines.end(), 29, u"REMARK");
    lines.insert(lines.end(), {u"REMARK 11000101", u"END"});
    ExpectOne(Check(lines), Kind::NoTypeLine, "1|METER||");
}

TEST_F(ListCheckTest, InstrumentMetTwice) {
    ExpectOne(Check({u"DEVICE A", u"TYPE 11000101", u"END", u"DEVICE A", u"TYPE 11000101", u"END"}),
              Kind::InstrumentTwice, "4|A||");
}

TEST_F(ListCheckTest, BytesThatAreNoCodePage936) {
    const Checked checked = CheckOf(catalogue, "DEVICE A\r\nTYPE 11000101\r\n\xB9\xFF 1010 0 R\r\nEND\r\n");
    ASSERT_EQ(checked.findings.size(), 1U);
    EXPECT_EQ(checked.findings[0].kind, Kind::NoCodePage);
    EXPECT_EQ(checked.findings[0].line, 3);
}

TEST_F(ListCheckTest, Utf8WithoutItsMark) {
    const Checked checked =
        CheckOf(catalogue, "DEVICE A\r\nTYPE 11000101\r\n1 温度 1010 0 R\r\n2 压力 1011 0 R\r\nEND\r\n");
    EXPECT_EQ(checked.findings.back().kind, Kind::LooksLikeUtf8);
    EXPECT_EQ(checked.findings.back().line, 3);
    for (const ListFinding& finding :
         CheckOf(catalogue, "DEVICE A\r\nTYPE 11000101\r\n1 \xCE\xC2\xB6\xC8 1010 0 R\r\nEND\r\n").findings) {
        ADD_FAILURE() << Words(finding);
    }
}

// --- What ends the import ---

TEST_F(ListCheckTest, CodeThatIsNoNumberEndsTheImport) {
    const Checked checked = CheckRows({u"1 PV 1010 X R"}, u"AB");
    ExpectOne(checked, Kind::CodeNoNumber, "2|METER|AB|");
    EXPECT_TRUE(checked.endsImport);
}

TEST_F(ListCheckTest, FileThatEndsInsideABlockEndsTheImport) {
    const Checked checked = Check({u"", u"DEVICE A", u"TYPE 11000101", u"1 PV 1010 R"});
    ExpectOne(checked, Kind::EndsInsideBlock, "2|A||");
    EXPECT_TRUE(checked.endsImport);
}

TEST_F(ListCheckTest, LinesThatCannotBeReadEndTheImport) {
    ExpectOne(Check({u"", Text(70000, u'X')}), Kind::LineTooLong, "2|||");
    ExpectOne(Check({u"", Text(u"A\0B", 3)}), Kind::HoldsNul, "2|||");
    const Checked checked = CheckOf(catalogue, std::string("\xFF\xFE"
                                                           "D\0",
                                                           4));
    ExpectOne(checked, Kind::IsUtf16, "1|||");
    EXPECT_TRUE(checked.endsImport);
}

TEST_F(ListCheckTest, ChangesNothing) {
    CheckRows({u"1 PV 1010 R"});
    EXPECT_THAT(Instruments(), IsEmpty());
}

}  // namespace
}  // namespace commtest
