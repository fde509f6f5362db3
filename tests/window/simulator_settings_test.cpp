#include "window/simulator_settings.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace commtest {
namespace {

class SimulatorSettingsTest : public ::testing::Test {
  protected:
    QTemporaryDir folder;
    QSettings store{folder.filePath("settings.ini"), QSettings::IniFormat};
    SimulatorSettings settings{store};

    std::string Stored(const char* key) {
        return store.value(QString("SystemSetting/") + key).toString().toStdString();
    }
};

TEST_F(SimulatorSettingsTest, PortAndInstrumentStayAsTheyWereAndTheRestIsStored) {
    store.setValue("SystemSetting/CommPort", "19200,N,8,1 COM3");
    store.setValue("SystemSetting/SoftSeting", "1000 7 16 2 5 1");
    store.setValue("SystemSetting/ShowType", "1");
    settings.Save(u"CommPort", u"9600,N,8,1 COM1");
    settings.Save(u"SoftSeting", u"250 1 8 0 3 0");
    settings.Save(u"ShowType", u"2");
    EXPECT_EQ(Stored("CommPort"), "19200,N,8,1 COM3");
    EXPECT_EQ(Stored("SoftSeting"), "250 7 8 2 5 0");
    EXPECT_EQ(Stored("ShowType"), "2");
}

TEST_F(SimulatorSettingsTest, SessionReadsWhatItHasSaved) {
    store.setValue("SystemSetting/CommPort", "19200,N,8,1 COM3");
    settings.Save(u"CommPort", u"9600,N,8,1 COM1");
    EXPECT_EQ(settings.Read(u"CommPort"), u"9600,N,8,1 COM1");
}

TEST_F(SimulatorSettingsTest, DefaultsAreStored) {
    settings.Save(u"CommPort", u"9600,N,8,1 COM1");
    EXPECT_EQ(Stored("CommPort"), "9600,N,8,1 COM1");
}

}  // namespace
}  // namespace commtest
