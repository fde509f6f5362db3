#pragma once

#include <map>

#include "host_qt/qt_settings.h"

namespace commtest {

// The settings of a store that is only read: changes last as long as this does.
class UnsavedSettings : public QtSettings {
  public:
    using QtSettings::QtSettings;

    std::optional<Text> Read(const Text& key) const override {
        const auto changed = changed_.find(key);
        return changed != changed_.end() ? changed->second : QtSettings::Read(key);
    }

    void Save(const Text& key, const Text& value) override { changed_[key] = value; }

  private:
    std::map<Text, Text> changed_;
};

}  // namespace commtest
