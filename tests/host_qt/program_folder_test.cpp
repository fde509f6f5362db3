#include "host_qt/program_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <atomic>
#include <barrier>
#include <thread>
#include <vector>

#include "catalogue/shipped_catalogue.h"
#include "runtime/runtime_error.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;
using ::testing::UnorderedElementsAre;

class ProgramFolderTest : public ::testing::Test {
  protected:
    bool Create(const std::function<void(Store&)>& fill = FillWithShippedCatalogue) const {
        return CreateProgramFolder(path.toStdU16String(), fill);
    }

    static void Put(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    static QByteArray ContentOf(const QString& name) {
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    std::vector<std::string> Content() const {
        std::vector<std::string> names;
        for (const QString& name :
             QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
            names.push_back(name.toStdString());
        }
        return names;
    }

    QTemporaryDir outer;
    QString path = outer.filePath(QString::fromUtf8("new/程序 folder"));
    QString catalogue = path + QString::fromUtf8("/通讯数据.mdb");
    QString help = path + QString::fromUtf8("/使用说明.ini");
};

TEST_F(ProgramFolderTest, IsMadeWithItsCatalogueAndItsRecordFolder) {
    EXPECT_TRUE(Create());
    EXPECT_THAT(Content(),
                UnorderedElementsAre("通讯数据.mdb", "使用说明.ini", "参数地址表.xls", "自动保存通讯记录"));
    EXPECT_TRUE(QDir(path + QString::fromUtf8("/自动保存通讯记录")).exists());
}

TEST_F(ProgramFolderTest, ACatalogueThatStandsThereIsKept) {
    ASSERT_TRUE(QDir().mkpath(path));
    Put(catalogue, "the user's own");
    EXPECT_FALSE(Create());
    EXPECT_EQ(ContentOf(catalogue), "the user's own");
    EXPECT_THAT(Content(),
                UnorderedElementsAre("通讯数据.mdb", "使用说明.ini", "参数地址表.xls", "自动保存通讯记录"));
}

TEST_F(ProgramFolderTest, HoldsTheHelpText) {
    Create();
    const QByteArray text = ContentOf(help);
    EXPECT_TRUE(text.startsWith("CommTest 使用说明 ")) << text.left(80).toStdString();
    EXPECT_TRUE(text.contains("\n  F5               开始/停止通讯\n"));
    EXPECT_TRUE(text.endsWith("回车等于双击。\n")) << text.right(80).toStdString();
}

TEST_F(ProgramFolderTest, AHelpFileThatStandsThereIsKeptAndAMissingOneIsMade) {
    Create();
    Put(help, "the user's own");
    EXPECT_FALSE(Create());
    EXPECT_EQ(ContentOf(help), "the user's own");
    ASSERT_TRUE(QFile::remove(help));
    EXPECT_FALSE(Create());
    EXPECT_TRUE(ContentOf(help).startsWith("CommTest 使用说明 "));
}

TEST_F(ProgramFolderTest, AFailureLeavesNoFileBehind) {
    EXPECT_THROW(Create([](Store& store) {
                     store.Execute(u"CREATE TABLE half (a TEXT)");
                     throw RuntimeError::OfStore(u"made to fail");
                 }),
                 RuntimeError);
    EXPECT_THAT(Content(), UnorderedElementsAre());
}

TEST_F(ProgramFolderTest, ACatalogueThatAppearsMeanwhileIsNotReplaced) {
    EXPECT_FALSE(Create([this](Store&) { Put(catalogue, "of another"); }));
    EXPECT_EQ(ContentOf(catalogue), "of another");
    EXPECT_THAT(Content(),
                UnorderedElementsAre("通讯数据.mdb", "使用说明.ini", "参数地址表.xls", "自动保存通讯记录"));
}

TEST_F(ProgramFolderTest, WhatAKilledProgramLeftIsClearedAway) {
    ASSERT_TRUE(QDir().mkpath(path));
    Put(catalogue + QStringLiteral(".0123456789abcdef0123456789abcdef"), "half a catalogue");
    Put(catalogue + QStringLiteral(".0123456789abcdef0123456789abcdef-journal"), "its journal");
    Put(path + QString::fromUtf8("/参数地址表.xls.0123456789abcdef0123456789abcdef"), "half a template");
    Put(catalogue + QStringLiteral(".old"), "the user's own");
    EXPECT_TRUE(Create());
    EXPECT_THAT(Content(), UnorderedElementsAre("通讯数据.mdb", "通讯数据.mdb.old", "使用说明.ini",
                                                "参数地址表.xls", "自动保存通讯记录"));
}

TEST_F(ProgramFolderTest, DraftOfAProgramThatStillWritesStays) {
    Create([this](Store&) {
        const std::size_t before = Content().size();
        EXPECT_EQ(before, 1U);
        EXPECT_TRUE(Create());
        EXPECT_EQ(Content().size(), 5U);
    });
    EXPECT_THAT(Content(),
                UnorderedElementsAre("通讯数据.mdb", "使用说明.ini", "参数地址表.xls", "自动保存通讯记录"));
}

TEST_F(ProgramFolderTest, FirstCallsAtOnceAllSucceedAndMakeOneCatalogue) {
    constexpr int kRounds = 60;
    constexpr int kCallers = 8;
    for (int round = 0; round < kRounds; ++round) {
        const Text folder = outer.filePath(QStringLiteral("round%1").arg(round)).toStdU16String();
        std::atomic<int> made = 0;
        std::atomic<int> failed = 0;
        std::barrier start(kCallers);
        std::vector<std::jthread> callers;
        for (int caller = 0; caller < kCallers; ++caller) {
            callers.emplace_back([&] {
                start.arrive_and_wait();
                try {
                    if (CreateProgramFolder(folder, [](Store&) {})) ++made;
                } catch (const RuntimeError&) {
                    ++failed;
                }
            });
        }
        callers.clear();
        ASSERT_EQ(failed, 0) << "round " << round;
        ASSERT_EQ(made, 1) << "round " << round;
    }
}

TEST_F(ProgramFolderTest, AFolderThatCannotBeMadeIsPathNotFound) {
    QFile file(outer.filePath(QStringLiteral("new")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(ErrorOf([this] { Create(); }), 76);
}

// Without a folder named: with a data folder of its own for the user, and no catalogue beside the program
// before and after.
class FindProgramFolderTest : public ProgramFolderTest {
  protected:
    FindProgramFolderTest() { qputenv("XDG_DATA_HOME", QFile::encodeName(outer.path())); }
    ~FindProgramFolderTest() override {
        QFile::remove(beside);
        qputenv("XDG_DATA_HOME", former);
    }

    static ProgramFolder Find() { return FindProgramFolder(FillWithShippedCatalogue); }

    QByteArray former = qgetenv("XDG_DATA_HOME");
    QString own = outer.filePath(QStringLiteral("CommTest"));
    QString beside = QCoreApplication::applicationDirPath() + QString::fromUtf8("/通讯数据.mdb");
};

// One test: others of this class would find its catalogue when they run beside it.
TEST_F(FindProgramFolderTest, IsTheProgramsWithACatalogueElseTheUsersWhichIsMadeOnce) {
    EXPECT_EQ(UsersProgramFolder(), own);
    const ProgramFolder first = Find();
    EXPECT_EQ(first.path, own);
    EXPECT_TRUE(first.wasMade);
    EXPECT_TRUE(QFile::exists(own + QString::fromUtf8("/通讯数据.mdb")));
    EXPECT_TRUE(QFile::exists(own + QString::fromUtf8("/使用说明.ini")));
    EXPECT_TRUE(QFile::exists(own + QString::fromUtf8("/参数地址表.xls")));

    const ProgramFolder second = Find();
    EXPECT_EQ(second.path, own);
    EXPECT_FALSE(second.wasMade);

    Put(beside, "a catalogue");
    const ProgramFolder third = Find();
    EXPECT_EQ(third.path, QCoreApplication::applicationDirPath());
    EXPECT_FALSE(third.wasMade);
    EXPECT_EQ(ContentOf(beside), "a catalogue");

    ASSERT_TRUE(QFile::remove(beside));
    ASSERT_TRUE(QDir(own).removeRecursively());
    Put(own, "in the way");
    EXPECT_EQ(ErrorOf([] { Find(); }), 76);
}

}  // namespace
}  // namespace commtest
