#include "cli/poll_report.h"

#include <gtest/gtest.h>

#include "session/grid_rows.h"
#include "session/main_form.h"
#include "support/form_bench.h"

namespace commtest {

namespace {

class PollReportTest : public ::testing::Test {
  protected:
    PollReportTest() {
        SetUpParameterGrid(form, kChineseTexts.parameterHeadings);
        form.ParameterGrid().SetCell(1, column::kName, u"测量值");
        form.ParameterGrid().SetCell(1, column::kAddress, u"0010");
        form.ParameterGrid().SetCell(1, column::kScaledValue, u"144.9");
        form.SendCount = 12;
        form.IncompleteCount = 1;
        form.CheckErrorCount = 2;
        form.NoReplyCount = 3;
        options.protocol = u"TQ仪表协议";
        options.instrument = u"HX";
        options.address = u"7";
        options.port = u"COM1";
        options.settings = u"9600,N,8,1";
    }

    testing::FormBench bench;
    MainForm& form = bench.form;
    LineOptions options;
};

TEST_F(PollReportTest, JsonHasTheMembersInTheOrderOfTheirKeys) {
    EXPECT_EQ(PollReport(form, options, 9, Format::Json),
              "{\n"
              "    \"address\": 7,\n"
              "    \"instrument\": \"HX\",\n"
              "    \"parameters\": [\n"
              "        {\n"
              "            \"address\": \"0010\",\n"
              "            \"attribute\": \"\",\n"
              "            \"decimals\": \"\",\n"
              "            \"groupRead\": \"\",\n"
              "            \"length\": \"\",\n"
              "            \"name\": \"测量值\",\n"
              "            \"row\": 1,\n"
              "            \"scaledValue\": \"144.9\",\n"
              "            \"singleRead\": \"\",\n"
              "            \"value\": \"\"\n"
              "        }\n"
              "    ],\n"
              "    \"port\": \"COM1\",\n"
              "    \"protocol\": \"TQ仪表协议\",\n"
              "    \"settings\": \"9600,N,8,1\",\n"
              "    \"statistics\": {\n"
              "        \"checkErrors\": 2,\n"
              "        \"exchanges\": 9,\n"
              "        \"frames\": 12,\n"
              "        \"incomplete\": 1,\n"
              "        \"noReply\": 3\n"
              "    }\n"
              "}\n");
}

TEST_F(PollReportTest, CsvHasTheStatisticsBehindAnEmptyLine) {
    EXPECT_EQ(PollReport(form, options, 9, Format::Csv),
              "序号,参数名称,地址,长度,属性,小数点,RE 读值,RR/RD 读值,计算值,小数点修正值\n"
              "1,测量值,0010,,,,,,,144.9\n"
              "\n"
              "总计通讯,数据不完整,校验出错,无应答\n"
              "12,1,2,3\n");
}

}  // namespace

}  // namespace commtest
