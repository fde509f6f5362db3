#include "window/guide_places.h"

#include <algorithm>
#include <array>

#include "window/catalogue_box.h"
#include "window/catalogue_page.h"
#include "window/cell_editor.h"
#include "window/chip_panel.h"
#include "window/communication_page.h"
#include "window/communication_strip.h"
#include "window/conversion_pane.h"
#include "window/error_page.h"
#include "window/filter_box.h"
#include "window/first_steps.h"
#include "window/grid_view.h"
#include "window/hit_list.h"
#include "window/import_question.h"
#include "window/import_result.h"
#include "window/port_page.h"
#include "window/record_view.h"
#include "window/search_panel.h"
#include "window/sidebar.h"
#include "window/spreadsheet_summary.h"
#include "window/statistics_label.h"
#include "window/status_panels.h"
#include "window/tab_row.h"
#include "window/tool_bar.h"
#include "window/tool_window.h"
#include "window/work_band.h"

namespace commtest {

namespace {

struct Row {
    const QMetaObject* kind;
    QStringView place;
};

// The first row that fits counts: what stands in another piece is ahead of it.
constexpr std::array<Row, 25> kRows = {{
    {&ImportQuestion::staticMetaObject, u"catalogues.md#import"},
    {&ImportResult::staticMetaObject, u"catalogues.md#import"},
    {&SpreadsheetSummary::staticMetaObject, u"catalogues.md#export"},
    {&CatalogueBox::staticMetaObject, u"catalogues.md#folder"},
    {&ToolWindow::staticMetaObject, u"tools.md#window"},
    {&CellEditor::staticMetaObject, u"writing.md#write"},
    {&FirstSteps::staticMetaObject, u"connection.md#first-poll"},
    {&SearchPanel::staticMetaObject, u"search.md#search"},
    {&HitList::staticMetaObject, u"search.md#results"},
    {&StatisticsLabel::staticMetaObject, u"reading.md#statistics"},
    {&RecordView::staticMetaObject, u"reading.md#record"},
    {&ConversionPane::staticMetaObject, u"tools.md#window"},
    {&CommunicationStrip::staticMetaObject, u"reading.md#start"},
    {&CommunicationPage::staticMetaObject, u"reading.md#grid"},
    {&PortPage::staticMetaObject, u"connection.md#settings"},
    {&ErrorPage::staticMetaObject, u"reading.md#statistics"},
    {&ChipPanel::staticMetaObject, u"catalogues.md#chips"},
    {&CataloguePage::staticMetaObject, u"instrument.md#list"},
    {&GridView::staticMetaObject, u"recordings.md#replay"},
    {&Sidebar::staticMetaObject, u"instrument.md#choose"},
    {&WorkBand::staticMetaObject, u"catalogues.md#import"},
    {&FilterBox::staticMetaObject, u"instrument.md#list"},
    {&TabRow::staticMetaObject, u"window.md#areas"},
    {&ToolBar::staticMetaObject, u"window.md#areas"},
    {&StatusPanels::staticMetaObject, u"window.md#areas"},
}};

bool StandsIn(const QWidget* widget, const QMetaObject& kind) {
    for (; widget != nullptr; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        if (widget->metaObject()->inherits(&kind)) return true;
    }
    return false;
}

}  // namespace

QString GuidePlaceOf(const QWidget* widget) {
    const auto* row =
        std::ranges::find_if(kRows, [widget](const Row& each) { return StandsIn(widget, *each.kind); });
    return row == kRows.end() ? QString() : row->place.toString();
}

QStringList GuidePlaces() {
    QStringList places;
    for (const Row& row : kRows) places += row.place.toString();
    return places;
}

}  // namespace commtest
