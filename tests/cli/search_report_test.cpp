#include "cli/search_report.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

std::vector<SearchHit> TwoHits() {
    return {{7, u"9600", 18'499, u" 40 30 37 52 44 31 31 0D", CheckWord::Right},
            {9, u"19200", 600'500, u" 40 0D", CheckWord::Wrong}};
}

TEST(SearchReport, JsonIsAnArrayOfHitsThatNamesTheCheckWord) {
    EXPECT_EQ(SearchReport(TwoHits(), Format::Json),
              "[\n"
              "    {\n"
              "        \"address\": 7,\n"
              "        \"baud\": 9600,\n"
              "        \"checkWord\": \"right\",\n"
              "        \"firstBytes\": \"40 30 37 52 44 31 31 0D\",\n"
              "        \"replyTime\": 18\n"
              "    },\n"
              "    {\n"
              "        \"address\": 9,\n"
              "        \"baud\": 19200,\n"
              "        \"checkWord\": \"wrong\",\n"
              "        \"firstBytes\": \"40 0D\",\n"
              "        \"replyTime\": 601\n"
              "    }\n"
              "]\n");
}

TEST(SearchReport, CsvHasALineAHit) {
    EXPECT_EQ(SearchReport(TwoHits(), Format::Csv),
              "address,baud,replyTime,checkWord,firstBytes\n"
              "7,9600,18,正确,40 30 37 52 44 31 31 0D\n"
              "9,19200,601,错误,40 0D\n");
}

TEST(SearchReport, CheckWordsThatAreMissingOrNotJudgedAreTold) {
    const std::vector<SearchHit> hits = {{1, u"1200", 0, u" 01", CheckWord::None},
                                         {2, u"1200", 0, u" 02", CheckWord::NotJudged}};
    EXPECT_EQ(SearchReport(hits, Format::Csv),
              "address,baud,replyTime,checkWord,firstBytes\n"
              "1,1200,0,没有,01\n"
              "2,1200,0,未判断,02\n");
    const std::string json = SearchReport(hits, Format::Json);
    EXPECT_NE(json.find("\"checkWord\": \"none\""), std::string::npos);
    EXPECT_NE(json.find("\"checkWord\": \"notJudged\""), std::string::npos);
}

TEST(SearchReport, LongReplyIsShownByItsFirstSixteenBytes) {
    HexText reply;
    for (int i = 0; i < 20; ++i) reply += u" 41";
    EXPECT_EQ(SearchReport({{1, u"9600", 0, reply, CheckWord::Right}}, Format::Csv),
              "address,baud,replyTime,checkWord,firstBytes\n"
              "1,9600,0,正确,41 41 41 41 41 41 41 41 41 41 41 41 41 41 41 41\n");
}

TEST(SearchReport, NothingFoundIsAnEmptyArray) { EXPECT_EQ(SearchReport({}, Format::Json), "[\n]\n"); }

}  // namespace

}  // namespace commtest
