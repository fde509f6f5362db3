#include "host_qt/path_problem.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>

namespace commtest {

namespace {

using namespace Qt::StringLiterals;

// The administrator may go everywhere, so he is somebody else here.
class OrdinaryUser {
  public:
    OrdinaryUser() {
        constexpr uid_t kNobody = 65534;
        EXPECT_EQ(seteuid(before_ == 0 ? kNobody : before_), 0);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { EXPECT_EQ(seteuid(before_), 0); }

  private:
    uid_t before_ = geteuid();
};

class PathProblem : public ::testing::Test {
  protected:
    PathProblem() {
        QFile::setPermissions(folder.path(), kAllMayEnter);
        QDir(folder.path()).mkdir(u"closed"_s);
        QFile file(Path("file"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
    ~PathProblem() override {
        QFile::setPermissions(folder.path(), kAllMayEnter);
        QFile::setPermissions(Path("closed"), kAllMayEnter);
    }

    QString Path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    // With "%" for the folder.
    std::string Obstacle(PathUse use, const char* name) const {
        const OrdinaryUser user;
        return ObstacleTo(use, Path(name)).replace(folder.path(), u"%"_s).toStdString();
    }

    static constexpr QFile::Permissions kAllMayRead = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    static constexpr QFile::Permissions kAllMayGoThrough =
        QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    static constexpr QFile::Permissions kAllMayEnter = kAllMayRead | kAllMayGoThrough | QFile::WriteOwner;
    QTemporaryDir folder;
};

TEST_F(PathProblem, NothingIsInTheWayOfAFileThatMayBeReadOrIsJustNotThere) {
    QFile::setPermissions(Path("file"), kAllMayRead);
    EXPECT_EQ(Obstacle(PathUse::Reading, "file"), "");
    EXPECT_EQ(Obstacle(PathUse::Reading, "none"), "");
}

TEST_F(PathProblem, FolderOnTheWayIsNamed) {
    QFile::setPermissions(Path("closed"), kAllMayRead);
    for (const PathUse use : {PathUse::Reading, PathUse::Writing}) {
        EXPECT_EQ(Obstacle(use, "closed/a/b"), "没有进入文件夹 %/closed 的权限");
        EXPECT_EQ(Obstacle(use, "none/a/b"), "没有文件夹 %/none");
        EXPECT_EQ(Obstacle(use, "file/a/b"), "%/file 是文件，不是文件夹");
    }
}

TEST_F(PathProblem, WhatStandsInThePlaceIsNamed) {
    QFile::setPermissions(Path("file"), kAllMayRead);
    QFile::setPermissions(Path("closed"), kAllMayRead | kAllMayGoThrough);
    EXPECT_EQ(Obstacle(PathUse::Reading, "closed"), "%/closed 是文件夹，不是文件");
    EXPECT_EQ(Obstacle(PathUse::Writing, "closed"), "%/closed 是文件夹，不是文件");
    EXPECT_EQ(Obstacle(PathUse::Writing, "file"), "没有写 %/file 的权限");
    EXPECT_EQ(Obstacle(PathUse::Writing, "closed/new"), "没有在文件夹 %/closed 中建立文件的权限");
    QFile::setPermissions(Path("file"), QFile::Permissions());
    EXPECT_EQ(Obstacle(PathUse::Reading, "file"), "没有读 %/file 的权限");
}

TEST_F(PathProblem, FolderMayBeMadeWithThoseAboveIt) {
    EXPECT_EQ(ObstacleTo(PathUse::MakingFolder, Path("a/b/c")), QString());
    EXPECT_EQ(ObstacleTo(PathUse::MakingFolder, Path("closed")), QString());
    EXPECT_EQ(Obstacle(PathUse::MakingFolder, "file/a"), "%/file 是文件，不是文件夹");
    QFile::setPermissions(folder.path(), kAllMayRead | kAllMayGoThrough);
    EXPECT_EQ(Obstacle(PathUse::MakingFolder, "a/b"), "没有在文件夹 % 中建立文件的权限");
}

TEST(SystemError, HasItsWords) {
    EXPECT_EQ(WordsOnSystemError(0), QString());
    EXPECT_EQ(WordsOnSystemError(ENOSPC).toStdString(), "磁盘已满");
    EXPECT_EQ(WordsOnSystemError(EFBIG).toStdString(), "文件已到系统允许的最大长度");
    EXPECT_EQ(WordsOnSystemError(EROFS).toStdString(), "磁盘是只读的");
}

TEST(SystemError, StandsWhereNothingIsInTheWay) {
    EXPECT_EQ(ReasonOfFailure(PathUse::Writing, u"/dev/full"_s, ENOSPC).toStdString(), "磁盘已满");
    EXPECT_EQ(ReasonOfFailure(PathUse::Writing, u"/dev"_s, ENOSPC).toStdString(), "/dev 是文件夹，不是文件");
}

}  // namespace

}  // namespace commtest
