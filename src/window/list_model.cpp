#include "window/list_model.h"

namespace commtest {

ListModel::ListModel(const ListControl& list, QObject* parent)
    : QAbstractListModel(parent),
      list_(list),
      rows_(static_cast<int>(list.Items().size())),
      epoch_(list.Epoch()) {}

void ListModel::Follow() {
    const int rows = static_cast<int>(list_.Items().size());
    if (epoch_ != list_.Epoch()) {
        beginResetModel();
        epoch_ = list_.Epoch();
        rows_ = rows;
        endResetModel();
    } else if (rows != rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    }
}

int ListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= list_.Items().size()) return {};
    const QString entry = QString::fromStdU16String(list_.Items()[row]);
    if (role == Qt::DisplayRole || role == Qt::EditRole) return entry;
    if (role == Qt::ToolTipRole && TipOf) return TipOf(entry);
    if (role == Qt::AccessibleTextRole && NameOf) return NameOf(entry);
    return {};
}

}  // namespace commtest
