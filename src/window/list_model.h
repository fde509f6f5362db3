#pragma once

#include <QAbstractListModel>
#include <functional>

#include "controls/value_controls.h"

namespace commtest {

// The entries of a list control for a combo box, read where they are: no copy, whatever their number.
class ListModel : public QAbstractListModel {
  public:
    explicit ListModel(const ListControl& list, QObject* parent = nullptr);

    // Tooltip of an entry, if there is one.
    std::function<QString(const QString& entry)> TipOf;

    // What an entry is called by those who read it aloud, if it is more than its text.
    std::function<QString(const QString& entry)> NameOf;

    // Tells the view what has come or gone since the last time.
    void Follow();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const ListControl& list_;
    int rows_ = 0;
    std::uint64_t epoch_ = 0;
};

}  // namespace commtest
