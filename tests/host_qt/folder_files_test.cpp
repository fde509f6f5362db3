#include "host_qt/folder_files.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "host/file_names.h"
#include "runtime/code_page.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

template <typename Action>
int ErrorOf(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

class FolderFilesTest : public ::testing::Test {
  protected:
    FolderFilesTest() { QDir().mkpath(path); }

    void Put(const QString& name, const QByteArray& bytes) const {
        QFile file(path + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    std::string Content(const QString& name) const {
        QFile file(path + u'/' + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    std::string ErrorFile() const { return Content(QStringLiteral("ErrorComm.ini")); }
    void RemoveFolder() const { QDir(path).removeRecursively(); }

    QTemporaryDir outer;
    QString path = outer.filePath(QString::fromUtf8("程序 folder"));
    FolderFiles files{path};
};

TEST_F(FolderFilesTest, PathIsTheFoldersAndTheName) {
    EXPECT_EQ(ToUtf8(files.PathOf(u"自动保存通讯记录/a.rtf")),
              path.toStdString() + "/自动保存通讯记录/a.rtf");
}

TEST_F(FolderFilesTest, RelativeFolderHasAFullPath) {
    EXPECT_EQ(ToUtf8(FolderFiles(QStringLiteral("x")).PathOf(u"y")),
              QDir::currentPath().toStdString() + "/x/y");
}

TEST_F(FolderFilesTest, FileExistsOnceItIsThere) {
    EXPECT_FALSE(files.Exists(u"Setup.ini"));
    Put(QStringLiteral("Setup.ini"), "x");
    EXPECT_TRUE(files.Exists(u"Setup.ini"));
}

TEST_F(FolderFilesTest, TextMayBeInEitherEncodingAndKeepsItsLineEnds) {
    Put(QStringLiteral("utf8"), "仪表\r\n2\n");
    Put(QStringLiteral("cp936"), "\xD2\xC7\xB1\xED\r\n2\n");
    EXPECT_EQ(ToUtf8(files.ReadWhole(u"utf8")), "仪表\r\n2\n");
    EXPECT_EQ(ToUtf8(files.ReadWhole(u"cp936")), "仪表\r\n2\n");
}

TEST_F(FolderFilesTest, MissingTextIsError53) {
    EXPECT_EQ(ErrorOf([this] { files.ReadWhole(u"none"); }), 53);
    EXPECT_EQ(ErrorOf([this] { files.ReadEnd(u"none"); }), 53);
    EXPECT_EQ(ErrorOf([this] { files.ReadLines(u"none"); }), 53);
}

TEST_F(FolderFilesTest, EndOfATextOfAMegabyteIsAllOfIt) {
    Put(QStringLiteral("long"), QByteArray(1024 * 1024, 'a'));
    const FileText file = files.ReadEnd(u"long");
    EXPECT_EQ(file.text, Text(1024 * 1024, u'a'));
    EXPECT_FALSE(file.isEndOnly);
}

TEST_F(FolderFilesTest, EndOfALongerTextIsItsLastMegabyteFromALineOn) {
    // The cut falls into the second character of the first line.
    QByteArray bytes = "仪表\n";
    bytes += QByteArray(1024 * 1024 - 3, 'a');
    Put(QStringLiteral("long"), bytes);
    const FileText file = files.ReadEnd(u"long");
    EXPECT_EQ(file.text, Text(1024 * 1024 - 3, u'a'));
    EXPECT_TRUE(file.isEndOnly);
    EXPECT_EQ(files.ReadWhole(u"long"), u"仪表\n" + Text(1024 * 1024 - 3, u'a'));
}

TEST_F(FolderFilesTest, RichTextIsReadAsItsPlainText) {
    Put(QStringLiteral("rich"), "{\\rtf1\\ansi{\\fonttbl{\\f0 x;}}\\'d2\\'c7\\u34920?\\par\r\nb}");
    EXPECT_EQ(ToUtf8(files.ReadWhole(u"rich")), "仪表\r\nb");
}

TEST_F(FolderFilesTest, EndOfARichTextIsAllOfItAlsoBeyondAMegabyte) {
    QByteArray bytes = "{\\rtf1 a{\\pict ";
    bytes += QByteArray(1024 * 1024, '0');
    bytes += "}b}";
    Put(QStringLiteral("rich"), bytes);
    const FileText file = files.ReadEnd(u"rich");
    EXPECT_EQ(ToUtf8(file.text), "ab");
    EXPECT_FALSE(file.isEndOnly);
}

TEST_F(FolderFilesTest, LinesComeOneByOneWithoutTheirEnds) {
    Put(QStringLiteral("lines"), "a \r\n\nb\r\n");
    const auto lines = files.ReadLines(u"lines");
    EXPECT_EQ(lines->Next(), u"a ");
    EXPECT_EQ(lines->Next(), u"");
    EXPECT_EQ(lines->Next(), u"b");
    EXPECT_EQ(lines->Next(), std::nullopt);
    EXPECT_EQ(lines->Next(), std::nullopt);
}

TEST_F(FolderFilesTest, LastLineNeedsNoEnd) {
    Put(QStringLiteral("lines"), "a\nb");
    const auto lines = files.ReadLines(u"lines");
    EXPECT_EQ(lines->Next(), u"a");
    EXPECT_EQ(lines->Next(), u"b");
    EXPECT_EQ(lines->Next(), std::nullopt);
}

TEST_F(FolderFilesTest, EmptyFileHasNoLine) {
    Put(QStringLiteral("lines"), "");
    EXPECT_EQ(files.ReadLines(u"lines")->Next(), std::nullopt);
    Put(QStringLiteral("mark"), "\xEF\xBB\xBF");
    EXPECT_EQ(files.ReadLines(u"mark")->Next(), std::nullopt);
}

TEST_F(FolderFilesTest, LinesAreOfTheEncodingOfTheWholeFile) {
    // The bytes of the first line would be UTF-8, too.
    Put(QStringLiteral("cp936"), "\xC4\xA3\n\xD2\xC7\xB1\xED\n");
    const auto codePage = files.ReadLines(u"cp936");
    EXPECT_EQ(codePage->Next(), u"模");
    EXPECT_EQ(codePage->Next(), u"仪表");

    Put(QStringLiteral("utf8"), "仪表\n温度\n");
    const auto utf8 = files.ReadLines(u"utf8");
    EXPECT_EQ(utf8->Next(), u"仪表");
    EXPECT_EQ(utf8->Next(), u"温度");

    Put(QStringLiteral("mark"), "\xEF\xBB\xBF仪表\n\xD2\n");
    const auto marked = files.ReadLines(u"mark");
    EXPECT_EQ(marked->Next(), u"仪表");
    EXPECT_EQ(marked->Next(), u"\uFFFD");
}

TEST_F(FolderFilesTest, LinesOfAFileOfManyMegabytesAreReadFromTheFirstOn) {
    constexpr int kLines = 100'000;
    Put(QStringLiteral("long"), QByteArray("000  仪表  2010 1 RW\n").repeated(kLines));
    const auto lines = files.ReadLines(u"long");
    int count = 0;
    while (const auto line = lines->Next()) {
        if (*line == u"000  仪表  2010 1 RW") ++count;
    }
    EXPECT_EQ(count, kLines);
}

std::string BytesOf(ByteReader& reader, std::size_t room) {
    std::string bytes(room, '?');
    bytes.resize(reader.Read(bytes.data(), room));
    return bytes;
}

TEST_F(FolderFilesTest, BytesComeAsTheyStandUntilTheEnd) {
    Put(QStringLiteral("TQ.ini"), QByteArray("\xEF\xBB\xBF\r\n\0x", 7));
    const auto bytes = files.OpenBytes(u"TQ.ini");
    EXPECT_EQ(bytes->Size(), 7U);
    EXPECT_EQ(BytesOf(*bytes, 4), "\xEF\xBB\xBF\r");
    EXPECT_EQ(BytesOf(*bytes, 4), std::string("\n\0x", 3));
    EXPECT_EQ(BytesOf(*bytes, 4), "");
}

TEST_F(FolderFilesTest, BytesAreReadAgainFromTheFirst) {
    Put(QStringLiteral("TQ.ini"), "abc");
    const auto bytes = files.OpenBytes(u"TQ.ini");
    EXPECT_EQ(BytesOf(*bytes, 4), "abc");
    bytes->Rewind();
    EXPECT_EQ(BytesOf(*bytes, 2), "ab");
    bytes->Rewind();
    EXPECT_EQ(BytesOf(*bytes, 4), "abc");
}

TEST_F(FolderFilesTest, BytesOfNoFileAreError53) {
    EXPECT_EQ(ErrorOf([this] { files.OpenBytes(u"none"); }), 53);
}

TEST_F(FolderFilesTest, BytesThatCannotBeReadAreError52) {
    QDir(path).mkdir(QStringLiteral("folder"));
    EXPECT_EQ(ErrorOf([this] { files.OpenBytes(u"folder"); }), 52);
    // The first page of a process is never readable.
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), path + QStringLiteral("/broken")));
    const auto bytes = files.OpenBytes(u"broken");
    EXPECT_EQ(ErrorOf([&] { BytesOf(*bytes, 4); }), 52);
}

TEST_F(FolderFilesTest, NamesAreThoseOfFilesThatBeginSoInTheirOrder) {
    for (const char* name : {"列表-2", "列表-10", "列表", "A-2", "列表-1.ini", "xA-1"}) Put(name, "");
    QDir(path).mkdir(QString::fromUtf8("列表-3"));
    Put(QString::fromUtf8("列表-3/列表-4"), "");
    EXPECT_EQ(files.NamesBeginning(u"列表-"), (std::vector<Text>{u"列表-1.ini", u"列表-10", u"列表-2"}));
    EXPECT_EQ(files.NamesBeginning(u"a"), std::vector<Text>());
}

TEST_F(FolderFilesTest, AFolderThatIsMissingHasNoNames) {
    RemoveFolder();
    EXPECT_EQ(files.NamesBeginning(u""), std::vector<Text>());
}

TEST_F(FolderFilesTest, RemovedFileIsGone) {
    Put(QStringLiteral("a"), "x");
    Put(QStringLiteral("b"), "x");
    files.Remove(u"a");
    EXPECT_EQ(QDir(path).entryList(QDir::Files), QStringList("b"));
}

TEST_F(FolderFilesTest, RenamedFileTakesNoOtherFilesPlace) {
    Put(QStringLiteral("a"), "x");
    Put(QStringLiteral("b"), "y");
    files.Rename(u"a", u"c");
    EXPECT_EQ(Content(QStringLiteral("c")), "x");
    EXPECT_EQ(ErrorOf([this] { files.Rename(u"c", u"b"); }), 52);
    EXPECT_EQ(ErrorOf([this] { files.Rename(u"none", u"d"); }), 52);
    EXPECT_EQ(QDir(path).entryList(QDir::Files), QStringList({"b", "c"}));
}

TEST_F(FolderFilesTest, WhatCannotBeRemovedIsError52) {
    QDir(path).mkdir(QStringLiteral("folder"));
    EXPECT_EQ(ErrorOf([this] { files.Remove(u"none"); }), 52);
    EXPECT_EQ(ErrorOf([this] { files.Remove(u"folder"); }), 52);
    EXPECT_TRUE(QDir(path).exists("folder"));
}

TEST_F(FolderFilesTest, AppendedFileIsMadeAndGrowsAtItsEnd) {
    {
        const auto file = files.OpenForAppend(u"OutTQ.ini");
        EXPECT_EQ(Content(QStringLiteral("OutTQ.ini")), "");
        file->Write(ToCodePage(u"仪"));
        EXPECT_EQ(Content(QStringLiteral("OutTQ.ini")), "\xD2\xC7");
    }
    files.OpenForAppend(u"OutTQ.ini")->Write("!\r\n");
    EXPECT_EQ(Content(QStringLiteral("OutTQ.ini")), "\xD2\xC7!\r\n");
}

TEST_F(FolderFilesTest, AppendedFilesAreApartFromTheErrorFile) {
    files.OpenErrorFile();
    const auto file = files.OpenForAppend(u"OutTQ.ini");
    files.WriteToErrorFile("error");
    file->Write("list");
    EXPECT_EQ(ErrorFile(), "error");
    EXPECT_EQ(Content(QStringLiteral("OutTQ.ini")), "list");
}

TEST_F(FolderFilesTest, AppendedFileWithoutItsFolderIsError76) {
    EXPECT_EQ(ErrorOf([this] { files.OpenForAppend(u"none/OutTQ.ini"); }), 76);
}

TEST_F(FolderFilesTest, AppendedFileThatCannotBeWrittenIsError52) {
    QDir(path).mkdir(QStringLiteral("OutTQ.ini"));
    EXPECT_EQ(ErrorOf([this] { files.OpenForAppend(u"OutTQ.ini"); }), 52);
}

TEST_F(FolderFilesTest, RecordIsSavedAsRichText) {
    QDir(path).mkdir(QString::fromStdU16String(Text(kRecordFolderName)));
    files.SaveRichText(u"自动保存通讯记录/记录.rtf", u"第");
    const std::string saved = Content(QString::fromUtf8("自动保存通讯记录/记录.rtf"));
    EXPECT_EQ(saved.substr(0, 6), "{\\rtf1");
    EXPECT_NE(saved.find("\\u31532?}"), std::string::npos) << saved;
}

TEST_F(FolderFilesTest, RecordWithoutItsFolderIsError76) {
    EXPECT_EQ(ErrorOf([this] { files.SaveRichText(u"自动保存通讯记录/记录.rtf", u"x"); }), 76);
}

TEST_F(FolderFilesTest, RecordThatCannotBeWrittenIsError52) {
    QDir(path).mkdir(QStringLiteral("folder.rtf"));
    EXPECT_EQ(ErrorOf([this] { files.SaveRichText(u"folder.rtf", u"x"); }), 52);
}

TEST_F(FolderFilesTest, ErrorFileIsMadeWhenItIsOpened) {
    files.OpenErrorFile();
    EXPECT_TRUE(files.ErrorFileIsOpen());
    EXPECT_EQ(ErrorFile(), "");
}

TEST_F(FolderFilesTest, ErrorFileGrowsAtItsEndAndEachRecordIsOnTheDiskAtOnce) {
    Put(QStringLiteral("ErrorComm.ini"), "before\r\n");
    files.OpenErrorFile();
    files.WriteToErrorFile(ToCodePage(u"仪"));
    EXPECT_EQ(ErrorFile(), "before\r\n\xD2\xC7");
    files.OpenErrorFile();
    files.WriteToErrorFile("!");
    EXPECT_EQ(ErrorFile(), "before\r\n\xD2\xC7!");
}

TEST_F(FolderFilesTest, ErrorFileThatIsNotOpenTakesNothing) {
    EXPECT_EQ(ErrorOf([this] { files.WriteToErrorFile("x"); }), 52);
    files.OpenErrorFile();
    files.CloseErrorFile();
    files.CloseErrorFile();
    EXPECT_FALSE(files.ErrorFileIsOpen());
    EXPECT_EQ(ErrorOf([this] { files.WriteToErrorFile("x"); }), 52);
}

TEST_F(FolderFilesTest, ErrorFileIsEmptied) {
    Put(QStringLiteral("ErrorComm.ini"), "before");
    files.EmptyErrorFile();
    EXPECT_EQ(ErrorFile(), "");
}

TEST_F(FolderFilesTest, ErrorFileIsKeptUnderTheMomentAndStays) {
    Put("ErrorComm.ini", "a");
    EXPECT_EQ(ToUtf8(files.KeepErrorFile(u"240506120000")), "ErrorComm-240506120000.ini");
    EXPECT_EQ(Content("ErrorComm-240506120000.ini"), "a");
    EXPECT_EQ(ErrorFile(), "a");
}

TEST_F(FolderFilesTest, KeptErrorFilesAreTheLastThree) {
    Put("ErrorComm-old.ini", "of the user");
    for (const TextView moment : {u"240506120000", u"240506120001", u"240506120001", u"240506120002"}) {
        Put("ErrorComm.ini", "a");
        files.KeepErrorFile(Text(moment));
    }
    EXPECT_EQ(QDir(path).entryList({"ErrorComm-*"}),
              QStringList({"ErrorComm-240506120001-2.ini", "ErrorComm-240506120001.ini",
                           "ErrorComm-240506120002.ini", "ErrorComm-old.ini"}));
    Put("ErrorComm.ini", "b");
    files.KeepErrorFile(u"240507000000");
    EXPECT_EQ(QDir(path).entryList({"ErrorComm-*"}),
              QStringList({"ErrorComm-240506120001-2.ini", "ErrorComm-240506120002.ini",
                           "ErrorComm-240507000000.ini", "ErrorComm-old.ini"}));
}

TEST_F(FolderFilesTest, ErrorFileThatIsNotThereCannotBeKept) {
    EXPECT_EQ(ErrorOf([this] { files.KeepErrorFile(u"240506120000"); }), 53);
}

TEST_F(FolderFilesTest, ErrorFileWithoutItsFolderIsError76) {
    RemoveFolder();
    EXPECT_EQ(ErrorOf([this] { files.OpenErrorFile(); }), 76);
    EXPECT_EQ(ErrorOf([this] { files.EmptyErrorFile(); }), 76);
    EXPECT_FALSE(files.ErrorFileIsOpen());
}

}  // namespace

}  // namespace commtest
