#include "host_qt/qt_settings.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace commtest {
namespace {

class QtSettingsTest : public ::testing::Test {
  protected:
    void Write(const QByteArray& lines) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(lines);
    }

    std::string FileContent() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    // As another run of the program reads it; "nothing" without a value.
    std::string ReadAnew(const Text& key) const {
        QSettings other(path, QSettings::IniFormat);
        const auto value = QtSettings(other).Read(key);
        return value ? ToUtf8(*value) : "nothing";
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QString::fromUtf8("设置.ini"));
};

TEST_F(QtSettingsTest, ValuesComeBackWholeInTheNextRun) {
    QSettings store(path, QSettings::IniFormat);
    QtSettings settings(store);
    for (const Text& value : {Text(u"9600,N,8,1 COM1"), Text(u"1000 1 16 0 0 1"), Text(u" COM1"), Text(u""),
                              Text(u"仪表 甲,乙"), Text(u"@x;\"y\"=\\z%1")}) {
        settings.Save(u"CommPort", value);
        EXPECT_EQ(settings.Read(u"CommPort"), value);
        EXPECT_EQ(ReadAnew(u"CommPort"), ToUtf8(value));
    }
}

TEST_F(QtSettingsTest, ValueIsOnTheDiskInItsSectionOnceSaved) {
    QSettings store(path, QSettings::IniFormat);
    QtSettings(store).Save(u"ShowType", u"2");
    EXPECT_EQ(FileContent(), "[SystemSetting]\nShowType=2\n");
}

TEST_F(QtSettingsTest, ValueThatStandsThereIsNotWrittenAgain) {
    QSettings store(path, QSettings::IniFormat);
    QtSettings settings(store);
    settings.Save(u"ShowType", u"2");
    ASSERT_TRUE(QFile::remove(path));
    settings.Save(u"ShowType", u"2");
    EXPECT_FALSE(QFile::exists(path));
    settings.Save(u"ShowType", u"1");
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(QtSettingsTest, MissingKeyIsNothing) {
    EXPECT_EQ(ReadAnew(u"ShowType"), "nothing");
    Write("ShowType=1\n[Other]\nShowType=2\n[SystemSetting]\nCommPort=x\n");
    EXPECT_EQ(ReadAnew(u"ShowType"), "nothing");
    EXPECT_EQ(ReadAnew(u"CommPort"), "x");
}

TEST_F(QtSettingsTest, ListWrittenByHandIsTheTextThatItWas) {
    Write("[SystemSetting]\nCommPort=4800,E,7,2 COM3\nSoftSeting=1000 1 16 0 0 1\n");
    EXPECT_EQ(ReadAnew(u"CommPort"), "4800,E,7,2 COM3");
    EXPECT_EQ(ReadAnew(u"SoftSeting"), "1000 1 16 0 0 1");
}

TEST_F(QtSettingsTest, SavingLeavesTheOtherSettings) {
    Write("[Window]\nwidth=800\n[SystemSetting]\nShowType=1\nCommPort=x\n");
    QSettings store(path, QSettings::IniFormat);
    QtSettings(store).Save(u"ShowType", u"0");
    EXPECT_EQ(ReadAnew(u"ShowType"), "0");
    EXPECT_EQ(ReadAnew(u"CommPort"), "x");
    EXPECT_NE(FileContent().find("[Window]\nwidth=800\n"), std::string::npos);
}

}  // namespace
}  // namespace commtest
