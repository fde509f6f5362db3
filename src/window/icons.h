#pragma once

#include <QIcon>
#include <QString>

#include "window/tokens.h"

namespace commtest {

// The icon of data/icons/NAME.svg in two tones, 20 logical pixels. Null if drawings of its kind cannot be
// read: captions stand alone then.
QIcon TwoToneIcon(const QString& name, const QColor& ink, const QColor& accent, const QColor& disabled);

}  // namespace commtest
