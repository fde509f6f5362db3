#include "cli/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/command_line_runner.h"

namespace commtest {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::IsProblem;
using ::testing::MatchesRegex;
using testing::Outcome;
using testing::RunCommand;
using ::testing::StartsWith;

TEST(CommandLine, TellsItsVersion) {
    const Outcome outcome = RunCommand({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.results, MatchesRegex("commtest-cli [0-9]+\\.[0-9]+\\.[0-9]+\n"
                                              "commit: ([0-9a-f]{12}(-dirty)?|none)\n"
                                              "toolkit: Qt 6\\.[0-9]+\\.[0-9]+\n"
                                              "store: SQLite 3\\.[0-9.]+\n"));
}

TEST(CommandLine, CompletionIsMadeForTheShellsItKnows) {
    EXPECT_THAT(RunCommand({"completion", "bash"}).results,
                EndsWith("\ncomplete -F _commtest_cli commtest-cli\n"));
    EXPECT_THAT(RunCommand({"completion", "zsh"}).results, StartsWith("#compdef commtest-cli\n"));
    EXPECT_TRUE(IsProblem(RunCommand({"completion", "fish"}), 2, "没有 shell \"fish\"，应为 bash、zsh"));
}

TEST(CommandLine, HelpNamesEachVerbAndEachExitStatus) {
    const Outcome outcome = RunCommand({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.problems, "");
    for (const char* word : {"poll", "write", "list", "catalogue", "convert", "check", "\n  0  ", "\n  1  ",
                             "\n  2  ", "\n  3  "}) {
        EXPECT_THAT(outcome.results, HasSubstr(word));
    }
}

TEST(CommandLine, HelpNamesRefusedLinesAndInputThatCannotBeRead) {
    const std::string help = RunCommand({"--help"}).results;
    EXPECT_THAT(
        help,
        HasSubstr("\n  2  用法不对，目录中没有这个名称，数值没有写入，或有不能换算的输入或不能校验的帧\n"));
    EXPECT_THAT(help, HasSubstr("或标准输入读不出来；\n"));
}

TEST(CommandLine, EachVerbHasItsHelp) {
    const struct {
        QString verb;
        std::vector<const char*> options;
    } rows[] = {
        {"poll",
         {"--folder", "--protocol", "--instrument", "--address", "--port", "--settings", "--interval",
          "--command", "--count", "--exchanges", "--seconds", "--show", "--face", "--record", "--format",
          "--strict"}},
        {"write", {"--row", "--value", "--port"}},
        {"list", {"ports|protocols|instruments|parameters|chips", "--format"}},
        {"catalogue", {"create", "import", "export", "channels", "check", "restore", "spreadsheet"}},
        {"convert", {"--format", "--to-code", "--to-value", "--explain"}},
        {"check", {"--protocol", "--format"}},
    };
    for (const auto& row : rows) {
        const Outcome outcome = RunCommand({row.verb, "--help"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.results, StartsWith("用法: commtest-cli " + row.verb.toStdString() + " "));
        for (const char* option : row.options) EXPECT_THAT(outcome.results, HasSubstr(option));
    }
}

TEST(CommandLine, HelpVerbGivesTheSameHelp) {
    const std::vector<QStringList> calls = {{}, {"poll"}, {"catalogue"}, {"catalogue", "import"}};
    for (const QStringList& words : calls) {
        const Outcome outcome = RunCommand(QStringList("help") + words);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.results, RunCommand(words + QStringList("--help")).results);
    }
}

TEST(CommandLine, EachActionOfTheCatalogueHasItsHelp) {
    const struct {
        QString action;
        std::vector<const char*> words;
    } rows[] = {
        {"create", {"文件夹"}},
        {"import", {"[文件]", "--folder", "--yes", "--format text|json", "TQ.ini", "OutTQ.ini"}},
        {"export", {"--folder", "--output 文件|-", "--instrument", "--format text|json", "OutTQ.ini"}},
        {"channels", {"[模板]", "--folder", "--output 文件|-", "TQP.Dev", "OutTQ.Dev"}},
        {"check", {"[文件]", "--folder", "--format text|json", "TQ.ini"}},
        {"restore", {"[备份]", "--folder", "--yes", "--format text|json"}},
        {"spreadsheet", {"--instrument 名称 | --all [选项]", "--folder", "--output 文件夹"}},
    };
    for (const auto& row : rows) {
        const Outcome outcome = RunCommand({"catalogue", row.action, "--help"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.results,
                    StartsWith("用法: commtest-cli catalogue " + row.action.toStdString() + " "));
        for (const char* word : row.words) EXPECT_THAT(outcome.results, HasSubstr(word));
    }
}

TEST(CommandLine, WrongWordsAreBadUsageInOneLine) {
    const struct {
        QStringList words;
        const char* line;
    } rows[] = {
        {{}, "缺少动词。用法请看 commtest-cli --help"},
        {{"dance"}, "没有动词 \"dance\"。用法请看 commtest-cli --help"},
        {{"poll", "--colour"}, "没有选项 \"colour\"。用法请看 commtest-cli poll --help"},
        {{"pol"}, "没有动词 \"pol\"，是不是 \"poll\"？用法请看 commtest-cli --help"},
        {{"poll", "--exchange", "1"},
         "没有选项 \"exchange\"，是不是 \"exchanges\"？用法请看 commtest-cli poll --help"},
        {{"help", "wirte"}, "没有动词 \"wirte\"，是不是 \"write\"？用法请看 commtest-cli --help"},
        {{"help", "catalogue", "create", "now"}, "多余的参数 \"now\"。用法请看 commtest-cli --help"},
        {{"list", "protocols", "--instrument", "x"},
         "list protocols 没有选项 --instrument。用法请看 commtest-cli list --help"},
        {{"list", "instruments", "--instrument", "x"},
         "list instruments 没有选项 --instrument。用法请看 commtest-cli list --help"},
        {{"list", "parameters"}, "缺少选项 --instrument。用法请看 commtest-cli list --help"},
        {{"recordings", "list", "--to", "x"},
         "recordings list 没有选项 --to。用法请看 commtest-cli recordings --help"},
        {{"recordings", "show", "--note", "x"},
         "缺少选项 --instrument。用法请看 commtest-cli recordings --help"},
        {{"poll", "--port"}, "选项 --port 的值缺少或多余。用法请看 commtest-cli poll --help"},
        {{"--face", "english"}, "没有动词 \"--face\"。用法请看 commtest-cli --help"},
        {{"--face", "english", "list", "protocols"}, "没有选项 \"face\"。用法请看 commtest-cli list --help"},
        {{"poll", "-x"}, "多余的参数 \"-x\"。用法请看 commtest-cli poll --help"},
        {{"write", "--value", "-12.5", "--row", "0"},
         "选项 --row 的值 \"0\" 不对，应为 1 到 32767 的整数。用法请看 commtest-cli write --help"},
        {{"poll", "--strict=yes"}, "选项 --strict 的值缺少或多余。用法请看 commtest-cli poll --help"},
        {{"list"},
         "缺少参数: ports、protocols、instruments、parameters 或 chips。用法请看 commtest-cli list --help"},
        {{"list", "port"}, "没有列表 \"port\"，是不是 \"ports\"？用法请看 commtest-cli list --help"},
        {{"list", "people"},
         "没有列表 \"people\"，应为 ports、protocols、instruments、parameters 或 chips。用法请看 "
         "commtest-cli list "
         "--help"},
        {{"list", "protocols", "now"}, "多余的参数 \"now\"。用法请看 commtest-cli list --help"},
        {{"list", "protocols", "--format", "xml"},
         "选项 --format 的值 \"xml\" 不对，应为 text、csv 或 json。用法请看 commtest-cli list --help"},
        {{"catalogue"},
         "缺少动作，应为 "
         "create、import、export、channels、check、restore、spreadsheet、info、copy、load、dump。用法请看 "
         "commtest-cli catalogue "
         "--help"},
        {{"catalogue", "exprot"},
         "没有动作 \"exprot\"，是不是 \"export\"？用法请看 commtest-cli catalogue --help"},
        {{"recordings", "shw"}, "没有动作 \"shw\"，是不是 \"show\"？用法请看 commtest-cli recordings --help"},
        {{"catalogue", "create"}, "缺少参数: 文件夹。用法请看 commtest-cli catalogue create --help"},
        {{"catalogue", "drop", "x"},
         "没有动作 \"drop\"，应为 "
         "create、import、export、channels、check、restore、spreadsheet、info、copy、load、dump。用法请看 "
         "commtest-cli "
         "catalogue --help"},
    };
    for (const auto& row : rows) EXPECT_TRUE(IsProblem(RunCommand(row.words), 2, row.line));
}

}  // namespace

}  // namespace commtest
