#include "cli/poll_report.h"
#include "cli/scaled_values.h"

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
        options.protocol = u"TQ仪表协议";
        options.instrument = u"HX";
        options.address = u"7";
        options.port = u"COM1";
        options.settings = u"9600,N,8,1";
    }

    testing::FormBench bench;
    MainForm& form = bench.form;
    LineOptions options;
    ScaledValues scaled;
    ReportedRows reported = {{}, scaled};
};

TEST_F(PollReportTest, JsonHasTheMembersInTheOrderOfTheirKeys) {
    EXPECT_EQ(PollReport(form, options, {2, 9, 12, 1, 3, 4, 5}, reported),
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
              "        \"noReply\": 3,\n"
              "        \"reconnects\": 4,\n"
              "        \"repetitions\": 5\n"
              "    }\n"
              "}\n");
}

TEST_F(PollReportTest, CsvHasTheKeysOfTheObjects) {
    EXPECT_EQ(Printed(GridTable(form, reported), Format::Csv),
              "row,name,address,length,attribute,decimals,singleRead,groupRead,value,scaledValue\n"
              "1,测量值,0010,,,,,,,144.9\n");
}

TEST_F(PollReportTest, RowsWantedStandAlone) {
    form.ParameterGrid().SetCell(3, column::kName, u"峰值");
    const ReportedRows third = {{3}, scaled};
    EXPECT_EQ(Printed(GridTable(form, third), Format::Csv),
              "row,name,address,length,attribute,decimals,singleRead,groupRead,value,scaledValue\n"
              "3,峰值,,,,,,,,\n");
}

}  // namespace

}  // namespace commtest
