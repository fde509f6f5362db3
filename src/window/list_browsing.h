#pragma once

#include <QComboBox>

namespace commtest {

// The arrows and letters open a list and browse in it; Enter chooses, Escape leaves what was chosen.
void BrowseBeforeChoosing(QComboBox& box);

}  // namespace commtest
