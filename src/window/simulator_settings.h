#pragma once

#include "host_qt/unsaved_settings.h"

namespace commtest {

// The settings of a session with the simulated instrument: its port and its instrument last as long as this
// does, everything else is stored.
class SimulatorSettings : public UnsavedSettings {
  public:
    using UnsavedSettings::UnsavedSettings;

    void Save(const Text& key, const Text& value) override;
};

}  // namespace commtest
