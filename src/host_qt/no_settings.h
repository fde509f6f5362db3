#pragma once

#include "host/settings_store.h"

namespace commtest {

// Settings that are kept nowhere: every key is missing, at every start.
class NoSettings : public SettingsStore {
  public:
    std::optional<Text> Read(const Text&) const override { return std::nullopt; }
    void Save(const Text&, const Text&) override {}
};

}  // namespace commtest
