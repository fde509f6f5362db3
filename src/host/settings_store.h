#pragma once

#include <optional>

#include "runtime/text.h"

namespace commtest {

// The per-user settings, application "CommTest", section "SystemSetting".
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    virtual std::optional<Text> Read(const Text& key) const = 0;
    virtual void Save(const Text& key, const Text& value) = 0;
};

}  // namespace commtest
