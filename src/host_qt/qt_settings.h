#pragma once

#include <QSettings>

#include "host/settings_store.h"

namespace commtest {

// The settings in a section of a QSettings store, which has to outlive this. A change is on the disk when
// Save returns; a value that stands there already is not written again, which takes a disk its time. A value
// that somebody wrote by hand and that looks like a list there is read as one text, without the blanks around
// its commas.
class QtSettings : public SettingsStore {
  public:
    explicit QtSettings(QSettings& store) : store_(store) {}

    std::optional<Text> Read(const Text& key) const override;
    void Save(const Text& key, const Text& value) override;

  private:
    QSettings& store_;
};

}  // namespace commtest
