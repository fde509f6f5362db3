#include "host_qt/gnumeric_sheet.h"

#include <map>
#include <utility>

#include "host_qt/xml_text.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kCell = u"gnm:Cell"_s;
const QString kCells = u"gnm:Cells"_s;
const QString kTextValue = u"60"_s;  // ValueType of a text

QDomElement SheetNamed(const QDomDocument& document, const QString& name) {
    const QDomElement sheets = document.documentElement().firstChildElement(u"gnm:Sheets"_s);
    QDomElement sheet = sheets.firstChildElement(u"gnm:Sheet"_s);
    while (!sheet.isNull() && sheet.firstChildElement(u"gnm:Name"_s).text() != name) {
        sheet = sheet.nextSiblingElement(u"gnm:Sheet"_s);
    }
    return sheet;
}

QDomElement CellsOf(QDomDocument& document, QDomElement& sheet) {
    const QDomElement cells = sheet.firstChildElement(kCells);
    return cells.isNull() ? sheet.appendChild(document.createElement(kCells)).toElement() : cells;
}

// Row and column, from 0.
using Place = std::pair<int, int>;

std::map<Place, QDomElement> CellsByPlace(const QDomElement& cells) {
    std::map<Place, QDomElement> places;
    for (QDomElement cell = cells.firstChildElement(kCell); !cell.isNull();
         cell = cell.nextSiblingElement(kCell)) {
        places[{cell.attribute(u"Row"_s).toInt(), cell.attribute(u"Col"_s).toInt()}] = cell;
    }
    return places;
}

}  // namespace

bool PutIntoGnumericSheet(QDomDocument& document, const QString& sheet, const std::vector<SheetCell>& cells) {
    QDomElement found = SheetNamed(document, sheet);
    if (found.isNull()) return false;
    QDomElement parent = CellsOf(document, found);
    std::map<Place, QDomElement> standing = CellsByPlace(parent);
    for (const SheetCell& cell : cells) {
        const auto former = standing.find({cell.row - 1, cell.column});
        if (former != standing.end()) {
            parent.removeChild(former->second);
            standing.erase(former);
        }
        if (cell.text.empty()) continue;
        QDomElement element = document.createElement(kCell);
        element.setAttribute(u"Row"_s, cell.row - 1);
        element.setAttribute(u"Col"_s, cell.column);
        element.setAttribute(u"ValueType"_s, kTextValue);
        element.appendChild(document.createTextNode(XmlText(cell.text)));
        parent.appendChild(element);
        standing[{cell.row - 1, cell.column}] = element;
    }
    return true;
}

}  // namespace commtest
