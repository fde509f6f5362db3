#include "host_qt/qt_spreadsheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/types.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <csignal>
#include <optional>

#include "event_loop.h"
#include "host_qt/shipped_template.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::Eventually;
using ::testing::HasSubstr;
using testing::RunEventLoopFor;
using Kind = SpreadsheetResult::Kind;

// What a stand-in takes for the document of a template and for a workbook.
const char* const kDocument =
    "<gnm:Workbook><gnm:Sheets><gnm:Sheet><gnm:Name>参数表</gnm:Name><gnm:Cells/></gnm:Sheet></gnm:Sheets>"
    "</gnm:Workbook>";
const char* const kMark = R"(\320\317\021\340\241\261\032\341)";

// Converts as ssconvert is called: the last argument is made, of the one before.
std::string StandIn(const std::string& toDocument, const std::string& toWorkbook) {
    return "#!/bin/sh\nfor last; do from=$to; to=$last; done\ncase $to in\n*.xml) " + toDocument +
           ";;\n*.xls) " + toWorkbook + ";;\nesac\n";
}

const std::string kGoodDocument = std::string("printf '%s' '") + kDocument + "' >$to";
const std::string kGoodWorkbook = std::string("{ printf '") + kMark + "'; cat $from; } >$to";

class SpreadsheetEngineTest : public ::testing::Test {
  protected:
    SpreadsheetEngineTest() {
        QDir(folder.path()).mkpath(QStringLiteral("bin"));
        QDir(folder.path()).mkpath(QStringLiteral("out"));
        Write(templatePath, "template");
    }

    static void Write(const QString& path, const std::string& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }

    static std::string ContentOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "";
    }

    void Install(const char* name, const std::string& script) const {
        const QString path = folder.filePath(QStringLiteral("bin/") + QString::fromLatin1(name));
        Write(path, script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    // Stand-ins use the programs of the system by their full names or through the shell's own path.
    QtSpreadsheetEngine Engine(int longestStep = kLongestSpreadsheetStep) const {
        return QtSpreadsheetEngine(folder.filePath(QStringLiteral("bin")), longestStep);
    }

    SpreadsheetOrder Order(const Text& sheet = u"参数表") const {
        return {templatePath.toStdU16String(), sheet, {{6, 0, u"001"}}, resultPath.toStdU16String()};
    }

    SpreadsheetResult Run(QtSpreadsheetEngine& engine, const SpreadsheetOrder& order) const {
        std::optional<SpreadsheetResult> result;
        const auto job = engine.Begin(order, [&](const SpreadsheetResult& end) { result = end; });
        EXPECT_FALSE(result.has_value());
        for (int turn = 0; turn < 30 && !result; ++turn) Eventually([&] { return result.has_value(); });
        return result.value_or(SpreadsheetResult{Kind::EngineHangs, u"the test gave up"});
    }
    SpreadsheetResult Run(const SpreadsheetOrder& order) const {
        QtSpreadsheetEngine engine = Engine();
        return Run(engine, order);
    }

    std::vector<std::string> Results() const {
        std::vector<std::string> names;
        const auto filter = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
        for (const QString& name : QDir(folder.filePath(QStringLiteral("out"))).entryList(filter)) {
            names.push_back(name.toStdString());
        }
        return names;
    }

    // The old result stands there, alone.
    void ExpectFormerResult() const {
        EXPECT_EQ(ContentOf(resultPath), "former");
        EXPECT_THAT(Results(), ElementsAre("结果.xls"));
    }

    QTemporaryDir folder;
    QString templatePath = folder.filePath(QString::fromUtf8("参数地址表.xls"));
    QString resultPath = folder.filePath(QString::fromUtf8("out/结果.xls"));
};

TEST_F(SpreadsheetEngineTest, FillsTheDocumentOfTheTemplateAndPutsTheWorkbookInPlace) {
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    EXPECT_EQ(Run(Order()), SpreadsheetResult{});
    EXPECT_THAT(ContentOf(resultPath), HasSubstr(">001</gnm:Cell>"));
    EXPECT_THAT(Results(), ElementsAre("结果.xls"));
}

TEST_F(SpreadsheetEngineTest, WithoutAProgramThereIsNoEngine) {
    Write(resultPath, "former");
    EXPECT_EQ(Run(Order()).kind, Kind::NoEngine);
    ExpectFormerResult();
}

TEST_F(SpreadsheetEngineTest, ProgramIsLookedForAtEachOrder) {
    QtSpreadsheetEngine engine = Engine();
    EXPECT_EQ(Run(engine, Order()).kind, Kind::NoEngine);
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    EXPECT_EQ(engine.JobsAtATime(), 2);
    EXPECT_EQ(Run(engine, Order()).kind, Kind::Written);
}

TEST_F(SpreadsheetEngineTest, TemplateIsConvertedOnceUntilItChanges) {
    Install("ssconvert",
            StandIn("echo x >>" + folder.path().toStdString() + "/count; " + kGoodDocument, kGoodWorkbook));
    QtSpreadsheetEngine engine = Engine();
    for (int turn = 0; turn < 3; ++turn) EXPECT_EQ(Run(engine, Order()).kind, Kind::Written);
    EXPECT_EQ(ContentOf(folder.filePath(QStringLiteral("count"))), "x\n");
    QFile file(templatePath);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    file.close();
    EXPECT_EQ(Run(engine, Order()).kind, Kind::Written);
    EXPECT_EQ(ContentOf(folder.filePath(QStringLiteral("count"))), "x\nx\n");
}

TEST_F(SpreadsheetEngineTest, MissingTemplateIsNamed) {
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    Write(resultPath, "former");
    QFile::remove(templatePath);
    EXPECT_EQ(Run(Order()), (SpreadsheetResult{Kind::NoTemplate, templatePath.toStdU16String()}));
    ExpectFormerResult();
}

TEST_F(SpreadsheetEngineTest, TemplateThatTheProgramDoesNotTakeIsUnreadable) {
    Install("ssconvert", StandIn("echo first; echo 'E Unsupported file' >&2; exit 1", kGoodWorkbook));
    Write(resultPath, "former");
    EXPECT_EQ(Run(Order()), (SpreadsheetResult{Kind::UnreadableTemplate, u"E Unsupported file"}));
    ExpectFormerResult();
    Install("ssconvert", StandIn("echo 'no document' >$to", kGoodWorkbook));
    EXPECT_EQ(Run(Order()).kind, Kind::UnreadableTemplate);
}

TEST_F(SpreadsheetEngineTest, TemplateWithoutTheSheetIsToldByTheSheet) {
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    Write(resultPath, "former");
    EXPECT_EQ(Run(Order(u"别的表")), (SpreadsheetResult{Kind::NoSheet, u"别的表"}));
    ExpectFormerResult();
}

TEST_F(SpreadsheetEngineTest, FailureOfTheProgramHasItsLastWords) {
    Write(resultPath, "former");
    Install("ssconvert", StandIn(kGoodDocument, "echo one >&2; echo two >&2; exit 3"));
    EXPECT_EQ(Run(Order()), (SpreadsheetResult{Kind::EngineFailed, u"two"}));
    ExpectFormerResult();
}

TEST_F(SpreadsheetEngineTest, ProgramThatMakesNothingOrNoWorkbookHasFailed) {
    Write(resultPath, "former");
    Install("ssconvert", StandIn(kGoodDocument, "true"));
    EXPECT_EQ(Run(Order()).kind, Kind::EngineFailed);
    Install("ssconvert", StandIn(kGoodDocument, "echo half >$to"));
    EXPECT_EQ(Run(Order()).kind, Kind::EngineFailed);
    ExpectFormerResult();
}

TEST_F(SpreadsheetEngineTest, ProgramThatCannotBeStartedHasFailed) {
    Install("ssconvert", "#!/no/such/shell\n");
    EXPECT_EQ(Run(Order()).kind, Kind::UnreadableTemplate);
}

TEST_F(SpreadsheetEngineTest, ProgramThatHangsIsEndedWithAllThatItHasStarted) {
    Write(resultPath, "former");
    const QString mark = folder.filePath(QStringLiteral("child"));
    Install("ssconvert", StandIn(kGoodDocument, "sleep 600 & echo $! >" + mark.toStdString() + "; wait"));
    QtSpreadsheetEngine engine = Engine(1000);
    EXPECT_EQ(Run(engine, Order()), (SpreadsheetResult{Kind::EngineHangs, u"ssconvert"}));
    ExpectFormerResult();
    const pid_t child = std::stoi(ContentOf(mark));
    EXPECT_TRUE(Eventually([child] { return kill(child, 0) != 0; }));
}

TEST_F(SpreadsheetEngineTest, ResultThatIsOpenElsewhereStays) {
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    Write(resultPath, "former");
    const QString mark = folder.filePath(QString::fromUtf8("out/.~lock.结果.xls#"));
    Write(mark, ",user,host,");
    EXPECT_EQ(Run(Order()), (SpreadsheetResult{Kind::OpenElsewhere, mark.toStdU16String()}));
    EXPECT_EQ(ContentOf(resultPath), "former");
}

TEST_F(SpreadsheetEngineTest, ResultThatIsOpenedMeanwhileStaysToo) {
    const QString mark = folder.filePath(QString::fromUtf8("out/.~lock.结果.xls#"));
    Install("ssconvert", StandIn(kGoodDocument, "echo x >'" + mark.toStdString() + "'; " + kGoodWorkbook));
    Write(resultPath, "former");
    EXPECT_EQ(Run(Order()).kind, Kind::OpenElsewhere);
    EXPECT_EQ(ContentOf(resultPath), "former");
}

TEST_F(SpreadsheetEngineTest, ResultThatCannotTakeItsNameFails) {
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    ASSERT_TRUE(QDir().mkpath(resultPath + QStringLiteral("/x")));
    EXPECT_EQ(Run(Order()).kind, Kind::CannotWrite);
    EXPECT_THAT(Results(), ElementsAre("结果.xls"));
}

TEST_F(SpreadsheetEngineTest, JobThatGoesEndsItsProgramAndTellsNothing) {
    const QString mark = folder.filePath(QStringLiteral("child"));
    Install("ssconvert", StandIn("echo $$ >" + mark.toStdString() + "; sleep 600", kGoodWorkbook));
    QtSpreadsheetEngine engine = Engine();
    bool isTold = false;
    auto job = engine.Begin(Order(), [&](const SpreadsheetResult&) { isTold = true; });
    ASSERT_TRUE(Eventually([&] { return ContentOf(mark).ends_with('\n'); }));
    job.reset();
    EXPECT_NE(kill(std::stoi(ContentOf(mark)), 0), 0);
    RunEventLoopFor(std::chrono::milliseconds(20));
    EXPECT_FALSE(isTold);
    EXPECT_TRUE(Results().empty());
}

TEST_F(SpreadsheetEngineTest, JobMayGoWithinItsOwnEnd) {
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    QtSpreadsheetEngine engine = Engine();
    std::unique_ptr<SpreadsheetJob> job;
    bool isTold = false;
    job = engine.Begin(Order(), [&](const SpreadsheetResult&) {
        job.reset();
        isTold = true;
    });
    EXPECT_TRUE(Eventually([&] { return isTold; }));
}

// --- LibreOffice ---

// Called as soffice is: the target behind --convert-to, the folder behind --outdir, the file at the end.
const char* const kOffice =
    "#!/bin/sh\n"
    "for word; do case $former in --convert-to) to=${word%%:*};; --outdir) folder=$word;; esac; "
    "former=$word; done\n"
    "case $to in\n"
    "fods) printf '%s' '<office:document><office:body><office:spreadsheet><table:table table:name=\"参数表\">"
    "<table:table-row table:number-rows-repeated=\"99\"><table:table-cell "
    "table:number-columns-repeated=\"11\"/>"
    "</table:table-row></table:table></office:spreadsheet></office:body></office:document>' "
    ">$folder/template.fods;;\n"
    "xls) { printf '\\320\\317\\021\\340\\241\\261\\032\\341'; cat $former; } >$folder/filled.xls;;\n"
    "esac\n";

TEST_F(SpreadsheetEngineTest, LibreOfficeStandsInWhereThereIsNoSsconvert) {
    Install("soffice", kOffice);
    QtSpreadsheetEngine engine = Engine();
    EXPECT_EQ(engine.JobsAtATime(), 1);
    EXPECT_EQ(Run(engine, Order()), SpreadsheetResult{});
    EXPECT_THAT(ContentOf(resultPath), HasSubstr("<text:p>001</text:p>"));
}

TEST_F(SpreadsheetEngineTest, SsconvertGoesBeforeLibreOffice) {
    Install("soffice", kOffice);
    Install("ssconvert", StandIn(kGoodDocument, kGoodWorkbook));
    EXPECT_EQ(Run(Order()), SpreadsheetResult{});
    EXPECT_THAT(ContentOf(resultPath), HasSubstr(">001</gnm:Cell>"));
}

TEST_F(SpreadsheetEngineTest, LibreOfficeThatSaysGoodButMakesNothingHasFailed) {
    Install("soffice", "#!/bin/sh\necho 'Error: source file could not be loaded' >&2\n");
    EXPECT_EQ(Run(Order()),
              (SpreadsheetResult{Kind::UnreadableTemplate, u"Error: source file could not be loaded"}));
}

// --- The real one ---

TEST_F(SpreadsheetEngineTest, GnumericFillsTheShippedTemplate) {
    ASSERT_FALSE(QStandardPaths::findExecutable(QStringLiteral("ssconvert")).isEmpty())
        << "gnumeric is not installed: scripts/install-packages test";
    Write(templatePath, std::string(ShippedTemplate()));
    QtSpreadsheetEngine engine;
    EXPECT_EQ(Run(engine, Order()), SpreadsheetResult{});
    EXPECT_TRUE(ContentOf(resultPath).starts_with("\xD0\xCF\x11\xE0"));
}

TEST_F(SpreadsheetEngineTest, GnumericDoesNotTakeWhatIsNoWorkbook) {
    QtSpreadsheetEngine engine;
    Write(templatePath, std::string("\0\1\2\3no workbook", 15));
    EXPECT_EQ(Run(engine, Order()).kind, Kind::UnreadableTemplate);
}

}  // namespace
}  // namespace commtest
