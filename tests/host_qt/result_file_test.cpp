#include "host_qt/result_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = SpreadsheetResult::Kind;

// No file of this program may grow beyond so many bytes, as on a disk that is full.
class NarrowDisk {
  public:
    explicit NarrowDisk(rlim_t bytes) : formerHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit narrow = {bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &narrow);
    }
    NarrowDisk(const NarrowDisk&) = delete;
    NarrowDisk& operator=(const NarrowDisk&) = delete;
    ~NarrowDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, formerHandler_);
    }

  private:
    rlimit former_ = {};
    void (*formerHandler_)(int);
};

class ResultFile : public ::testing::Test {
  protected:
    void WriteFormer() const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("former");
    }

    QByteArray Content() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        const auto entries =
            QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QString& name : entries) names.push_back(name.toStdString());
        return names;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QString::fromUtf8("表.xls"));
};

TEST_F(ResultFile, TakesItsNameAndNothingStandsBesideIt) {
    WriteFormer();
    EXPECT_EQ(PutInPlace(path, "new").kind, Kind::Written);
    EXPECT_EQ(Content(), "new");
    EXPECT_THAT(Names(), ElementsAre("表.xls"));
}

TEST_F(ResultFile, FullDiskLeavesTheFormerOneAndNoHalfOne) {
    WriteFormer();
    {
        const NarrowDisk narrow(100);
        EXPECT_EQ(PutInPlace(path, QByteArray(5000, 'x')),
                  (SpreadsheetResult{Kind::NoRoom, path.toStdU16String()}));
    }
    EXPECT_EQ(Content(), "former");
    EXPECT_THAT(Names(), ElementsAre("表.xls"));
}

TEST_F(ResultFile, NameThatIsAFolderCannotBeWritten) {
    ASSERT_TRUE(QDir().mkpath(path + QStringLiteral("/x")));
    const SpreadsheetResult result = PutInPlace(path, "new");
    EXPECT_EQ(result.kind, Kind::CannotWrite);
    EXPECT_TRUE(result.detail.starts_with(path.toStdU16String() + u"：")) << ToUtf8(result.detail);
    EXPECT_THAT(Names(), ElementsAre("表.xls"));
}

TEST_F(ResultFile, MissingFolderCannotBeWritten) {
    EXPECT_EQ(PutInPlace(folder.filePath(QStringLiteral("no/表.xls")), "new").kind, Kind::CannotWrite);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(ResultFile, MarkOfAnOfficeProgramTellsThatItIsOpen) {
    EXPECT_EQ(LookForOpenElsewhere(path).kind, Kind::Written);
    QFile mark(folder.filePath(QString::fromUtf8(".~lock.表.xls#")));
    ASSERT_TRUE(mark.open(QIODevice::WriteOnly));
    EXPECT_EQ(LookForOpenElsewhere(path),
              (SpreadsheetResult{Kind::OpenElsewhere, mark.fileName().toStdU16String()}));
}

}  // namespace
}  // namespace commtest
