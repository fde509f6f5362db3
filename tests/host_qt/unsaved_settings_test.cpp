#include "host_qt/unsaved_settings.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace commtest {

namespace {

TEST(UnsavedSettings, ChangesAreReadAgainAndLeaveTheStoreAsItWas) {
    const QTemporaryDir folder;
    QSettings store(folder.filePath("settings.ini"), QSettings::IniFormat);
    store.setValue("SystemSetting/ShowType", "2");
    UnsavedSettings settings(store);
    EXPECT_EQ(settings.Read(u"ShowType"), u"2");
    settings.Save(u"ShowType", u"3");
    settings.Save(u"CommPort", u"x");
    EXPECT_EQ(settings.Read(u"ShowType"), u"3");
    EXPECT_EQ(settings.Read(u"CommPort"), u"x");
    EXPECT_EQ(store.value("SystemSetting/ShowType").toString().toStdString(), "2");
    EXPECT_EQ(store.allKeys().size(), 1);
}

}  // namespace

}  // namespace commtest
