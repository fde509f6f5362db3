#pragma once

#include <QString>
#include <string_view>

#include "host_qt/shipped_help.h"

namespace commtest {

// Puts the present help text into a program folder that has a former one. `versions` as in
// ShippedHelpVersions. What a user has written there stays, and so does what cannot be written; a missing
// file stays missing.
void RenewHelp(const QString& folder, std::string_view present = ShippedHelp(),
               std::string_view versions = ShippedHelpVersions());

}  // namespace commtest
