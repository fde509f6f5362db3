#include "window/fact_table.h"

#include <QHeaderView>
#include <algorithm>

#include "window/look.h"
#include "window/theme.h"

namespace commtest {

FactTable::FactTable(const QStringList& headings, QWidget* parent)
    : QTableWidget(0, static_cast<int>(headings.size()), parent) {
    SetLook(*this, Look::FactTable);
    setFont(Theme::CaptionFont());
    setHorizontalHeaderLabels(headings);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(kRowHeight);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setFont(Theme::CaptionFont());
    horizontalHeader()->setFixedHeight(kRowHeight);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
}

void FactTable::AddRow(const QStringList& cells) {
    const int row = rowCount();
    setRowCount(row + 1);
    for (int column = 0; column < cells.size(); ++column) {
        auto* item = new QTableWidgetItem(cells[column]);
        item->setToolTip(cells[column]);
        setItem(row, column, item);
    }
}

void FactTable::ShowNumbersIn(int column) { Dress(column, Qt::AlignRight | Qt::AlignVCenter); }

void FactTable::ShowCodesIn(int column) { Dress(column, Qt::AlignLeft | Qt::AlignVCenter); }

void FactTable::Dress(int column, Qt::Alignment alignment) {
    horizontalHeaderItem(column)->setTextAlignment(alignment);
    for (int row = 0; row < rowCount(); ++row) {
        item(row, column)->setFont(Theme::MonoFont());
        item(row, column)->setTextAlignment(alignment);
    }
}

void FactTable::SetColumnWidths(const QList<int>& widths) {
    for (int column = 0; column < widths.size(); ++column) setColumnWidth(column, widths[column]);
}

void FactTable::ShowRows(int most) {
    setFixedHeight((std::min(rowCount(), most) + 1) * kRowHeight + 2 * frameWidth());
}

}  // namespace commtest
