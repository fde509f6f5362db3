#pragma once

#include <QString>

#include "commissioning/parameter_write.h"
#include "window/glyphs.h"

namespace commtest {

class MainForm;

// How the window puts what becomes of a write.

QString RowName(const MainForm& form, int row);  // "013 量程下限"
QString WordsOn(const MainForm& form, const ParameterWrite& write);

// What the catalogue allows in a row, "允许 -199.9 … 999.9，小数 1 位"; empty where it says nothing.
QString WordsOnLimits(const MainForm& form, int row);

// What speaks against an entry, "超出上限；两字节放不下，仪表将收到 339.2".
QString WordsOnObjection(const MainForm& form, int row, const WriteCheck& check);

// How the cell of a write looks.
struct WriteLook {
    enum class Weight { Quiet, Plain, Warning };

    Glyph glyph = Glyph::Dots;
    Weight weight = Weight::Plain;
    bool hasBar = false;
    bool isTinted = false;
};
WriteLook LookOf(WriteOutcome outcome);

}  // namespace commtest
