#pragma once

#include "session/switches.h"
#include "session/texts.h"

namespace commtest {

inline constexpr TextView kSettingsTable = u"表格_设置";
inline constexpr TextView kEnglishSettingsTable = u"表格-设置";

// What a face is made of: its words, the table of the catalogue that lays it out, and what it has.
struct Face {
    const Texts& texts;
    TextView settingsTable;
    Switches switches;
};

inline constexpr Face kChineseFace = {kChineseTexts, kSettingsTable, {}};
inline constexpr Face kEnglishFace = {kEnglishTexts,
                                      kEnglishSettingsTable,
                                      {.multiRegisterWrite = false,
                                       .intervalTimer = false,
                                       .catalogueModeSwitch = false,
                                       .instrumentTypeHandling = false,
                                       .everyListProtocol = false,
                                       .chipDescription = false,
                                       .valueColumnLayout = false}};

}  // namespace commtest
