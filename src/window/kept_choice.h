#pragma once

#include <map>
#include <memory>

#include "host/settings_store.h"
#include "host/store.h"

namespace commtest {

// The settings of a session whose catalogue may be missing: while it is not open, nothing can be chosen out
// of it, and the protocol and the instrument that are stored stay, whatever else is saved.
class KeptChoice : public SettingsStore {
  public:
    KeptChoice(std::unique_ptr<SettingsStore> settings, const Store& catalogue)
        : settings_(std::move(settings)), catalogue_(catalogue) {}

    std::optional<Text> Read(const Text& key) const override;
    void Save(const Text& key, const Text& value) override;

    // From now on nothing is stored; what is saved lasts as long as this does.
    void BeginTrial() { isTrial_ = true; }

  private:
    std::unique_ptr<SettingsStore> settings_;
    const Store& catalogue_;
    bool isTrial_ = false;
    std::map<Text, Text> tried_;
};

}  // namespace commtest
