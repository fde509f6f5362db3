#include "window/grid_model.h"

#include "commissioning/write_watch.h"
#include "host_qt/words.h"
#include "session/main_form.h"
#include "window/write_words.h"

namespace commtest {

namespace {

QString NumberOf(int row) { return QStringLiteral("%1 ").arg(row, 3, 10, QLatin1Char('0')); }

int RowsBelowHeader(const Grid& grid) { return grid.Rows() > 0 ? grid.Rows() - 1 : 0; }

}  // namespace

GridModel::GridModel(const Grid& grid, QObject* parent, bool numbersRows)
    : QAbstractTableModel(parent),
      grid_(grid),
      numbersRows_(numbersRows),
      rows_(RowsBelowHeader(grid)),
      columns_(grid.Cols()) {}

void GridModel::Follow() {
    order_.clear();
    const int rows = RowsBelowHeader(grid_);
    if (columns_ != grid_.Cols()) {
        beginResetModel();
        rows_ = rows;
        columns_ = grid_.Cols();
        endResetModel();
    } else if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
}

void GridModel::Order(std::vector<int> gridRows) {
    order_ = std::move(gridRows);
    places_.assign(order_.size() + 1, -1);
    for (std::size_t row = 0; row < order_.size(); ++row)
        places_[static_cast<std::size_t>(order_[row])] = static_cast<int>(row);
    if (rows_ > 0 && columns_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
}

int GridModel::GridRow(int row) const {
    const bool isOrdered = row >= 0 && row < std::ssize(order_);
    return isOrdered ? order_[static_cast<std::size_t>(row)] : row + 1;
}

QModelIndex GridModel::CellOf(int gridRow, int col) const {
    const bool isOrdered = !order_.empty() && gridRow >= 0 && gridRow < std::ssize(places_);
    return index(isOrdered ? places_[static_cast<std::size_t>(gridRow)] : gridRow - 1, col);
}

void GridModel::TellWrites(const MainForm& form, const WriteWatch& writes) {
    form_ = &form;
    writes_ = &writes;
}

void GridModel::WriteChanged(int row) {
    const QModelIndex cell = CellOf(row, column::kNewValue);
    if (cell.isValid()) emit dataChanged(cell, cell);
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int row = GridRow(index.row());
    if (role == Qt::DisplayRole) return TextAt(row, index.column());
    if (writes_ == nullptr || index.column() != column::kNewValue) return {};
    if (role == Qt::ToolTipRole) return WordsOnWriteOf(row);
    if (role != Qt::AccessibleTextRole) return {};
    QStringList parts = {TextAt(row, column::kName), TextAt(row, column::kNewValue), WordsOnWriteOf(row)};
    parts.removeAll(QString());
    return parts.join(Words::tr("，"));
}

QString GridModel::WordsOnWriteOf(int row) const {
    const ParameterWrite* write = writes_->Of(row);
    return write == nullptr ? QString() : WordsOn(*form_, *write);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::AccessibleTextRole && told_.column == section)
        return TextAt(0, section) + (told_.isDescending ? Words::tr("，降序") : Words::tr("，升序"));
    if (role != Qt::DisplayRole) return {};
    return TextAt(0, section);
}

// A handler may have made the grid smaller since the last look.
QString GridModel::TextAt(int row, int col) const {
    if (row >= grid_.Rows() || col >= grid_.Cols()) return {};
    const Text& text = grid_.Cell(row, col);
    const bool lacksItsNumber = numbersRows_ && col == 0 && row > 0 && text.empty();
    return lacksItsNumber ? NumberOf(row) : QString::fromStdU16String(text);
}

}  // namespace commtest
