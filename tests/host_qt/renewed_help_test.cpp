#include "host_qt/renewed_help.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>

namespace commtest {
namespace {

// SHA-256 of "first" and of "second".
constexpr std::string_view kVersions =
    "a7937b64b8caa58f03721bb6bacf5c78cb235febe0e70b1b84cd99541461a08e\n"
    "16367aacb67a4a017c8da8ab95682ccb390863780f7114dda0a0e0c55644c7c4";

class RenewHelpTest : public ::testing::Test {
  protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QString::fromUtf8("使用说明.ini"));

    // What stands there behind a start of the program whose text is "second".
    QByteArray Renewed(const QByteArray& text) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        RenewHelp(folder.path(), "second", kVersions);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};

TEST_F(RenewHelpTest, FormerTextGivesWayToThePresentOne) { EXPECT_EQ(Renewed("first"), "second"); }

TEST_F(RenewHelpTest, WhatAUserHasWrittenStays) {
    EXPECT_EQ(Renewed("first, and a word of ours"), "first, and a word of ours");
    EXPECT_EQ(Renewed("second, and a word of ours"), "second, and a word of ours");
    EXPECT_EQ(Renewed(""), "");
}

TEST_F(RenewHelpTest, MissingTextStaysMissing) {
    RenewHelp(folder.path(), "second", kVersions);
    EXPECT_FALSE(QFile::exists(path));
}

TEST(ShippedHelpVersions, EndWithThePresentText) {
    const QByteArray text(ShippedHelp().data(), static_cast<qsizetype>(ShippedHelp().size()));
    const std::string sum = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex().toStdString();
    EXPECT_TRUE(ShippedHelpVersions().ends_with(sum)) << "data/help/versions.txt: add " << sum;
}

}  // namespace
}  // namespace commtest
