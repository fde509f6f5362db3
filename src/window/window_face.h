#pragma once

#include <QStringView>
#include <array>

#include "session/grid_rows.h"
#include "session/main_form.h"

namespace commtest {

// What is laid out for the words of a face, in logical pixels.
struct FaceLayout {
    int tickColumns;  // the advanced settings stand side by side in them
    int filterWidth;  // of the field over the grid
    std::array<int, column::kCount> columns =
        {};  // of the grid: the least widths, where its own are too small
};

// A face of the session with what the window adds to it.
struct WindowFace {
    QStringView name;     // on the command line and in the settings
    QStringView caption;  // where it is chosen
    const Face& session;
    QStringView behindAdvancedSettings;  // beside their caption
    QStringView translation;   // of the window's words, a resource; empty: they are written in its language
    QStringView toolkitTexts;  // the toolkit's translation; empty: its texts are
    QStringView help;          // a resource; empty: what the session reads from the program folder
    QStringView guide;         // a folder of resources
    FaceLayout layout;
};

inline constexpr std::array<WindowFace, 2> kWindowFaces = {
    {{.name = u"chinese",
      .caption = u"中文",
      .session = kChineseFace,
      .behindAdvancedSettings = u"(通讯时,可不理会这些设置)",
      .translation = u"",
      .toolkitTexts = u"qtbase_zh_CN",
      .help = u"",
      .guide = u":/docs/guide/zh",
      .layout = {.tickColumns = 2, .filterWidth = 180}},
     {.name = u"english",
      .caption = u"English",
      .session = kEnglishFace,
      .behindAdvancedSettings = u"",
      .translation = u":/translations/english.qm",
      .toolkitTexts = u"",
      .help = u":/help/help_english.txt",
      .guide = u":/docs/guide/en",
      .layout = {.tickColumns = 1, .filterWidth = 260, .columns = {0, 0, 0, 52, 72, 0, 0, 0, 0, 0, 144}}}}};

// Null if none has that name.
const WindowFace* FindFace(QStringView name);

// The face that the session of a window has.
const WindowFace& FaceOf(const MainForm& form);

}  // namespace commtest
