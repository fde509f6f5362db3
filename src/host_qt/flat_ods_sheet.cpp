#include "host_qt/flat_ods_sheet.h"

#include <QStringList>
#include <map>

#include "host_qt/xml_text.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kTable = u"table:table"_s;
const QString kRow = u"table:table-row"_s;
const QString kRowsRepeated = u"table:number-rows-repeated"_s;
const QString kColumnsRepeated = u"table:number-columns-repeated"_s;

QDomElement TableNamed(const QDomDocument& document, const QString& name) {
    const QDomElement body = document.documentElement().firstChildElement(u"office:body"_s);
    const QDomElement book = body.firstChildElement(u"office:spreadsheet"_s);
    QDomElement table = book.firstChildElement(kTable);
    while (!table.isNull() && table.attribute(u"table:name"_s) != name) {
        table = table.nextSiblingElement(kTable);
    }
    return table;
}

// An element that stands for several alike, the first of which has this index.
struct Run {
    QDomElement element;
    QString countName;

    int Count() const { return element.attribute(countName, u"1"_s).toInt(); }
    void SetCount(int count) {
        if (count == 1) {
            element.removeAttribute(countName);
        } else {
            element.setAttribute(countName, count);
        }
    }
};

// The runs of a row or a table by their first indexes.
using Runs = std::map<int, Run>;

void Append(Runs& runs, const QDomElement& element, const QString& countName) {
    const int next = runs.empty() ? 0 : runs.rbegin()->first + runs.rbegin()->second.Count();
    runs[next] = {element, countName};
}

// Rows stand in the table itself or in groups, one of which holds the repeated headings.
void AppendRows(Runs& runs, const QDomElement& parent) {
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString name = child.tagName();
        if (name == kRow) Append(runs, child, kRowsRepeated);
        if (name == u"table:table-header-rows" || name == u"table:table-rows" ||
            name == u"table:table-row-group") {
            AppendRows(runs, child);
        }
    }
}

// The element before the index goes on without it: from there on another of the same kind stands for the
// rest.
void SplitAt(Runs& runs, Runs::iterator at, int index) {
    if (at->first == index) return;
    Run& front = at->second;
    const int before = index - at->first;
    Run rest = {front.element.cloneNode().toElement(), front.countName};
    rest.SetCount(front.Count() - before);
    front.SetCount(before);
    front.element.parentNode().insertAfter(rest.element, front.element);
    runs[index] = rest;
}

// The one element of this index; null behind the last.
QDomElement Single(Runs& runs, int index) {
    const auto behind = runs.upper_bound(index);
    if (behind == runs.begin()) return {};
    const auto at = std::prev(behind);
    if (index >= at->first + at->second.Count()) return {};
    SplitAt(runs, at, index);
    const auto own = runs.find(index);
    if (own->second.Count() > 1) SplitAt(runs, own, index + 1);
    return own->second.element;
}

Runs CellsOf(const QDomElement& row) {
    Runs runs;
    for (QDomElement cell = row.firstChildElement(); !cell.isNull(); cell = cell.nextSiblingElement()) {
        Append(runs, cell, kColumnsRepeated);
    }
    return runs;
}

void AppendBlanks(QDomDocument& document, QDomElement& paragraph, QString& plain) {
    if (!plain.isEmpty()) paragraph.appendChild(document.createTextNode(plain));
    plain.clear();
    paragraph.appendChild(document.createElement(u"text:s"_s));
}

// Blanks that stand together would become one: each has an element of its own.
QDomElement ParagraphOf(QDomDocument& document, const QString& line) {
    QDomElement paragraph = document.createElement(u"text:p"_s);
    QString plain;
    for (const QChar character : line) {
        if (character == u' ') {
            AppendBlanks(document, paragraph, plain);
        } else {
            plain += character;
        }
    }
    if (!plain.isEmpty()) paragraph.appendChild(document.createTextNode(plain));
    return paragraph;
}

void Empty(QDomElement& cell) {
    while (cell.hasChildNodes()) cell.removeChild(cell.firstChild());
    for (const QString& name :
         {u"office:value-type"_s, u"office:value"_s, u"office:date-value"_s, u"office:time-value"_s,
          u"office:boolean-value"_s, u"office:string-value"_s, u"calcext:value-type"_s, u"table:formula"_s}) {
        cell.removeAttribute(name);
    }
}

void SetText(QDomDocument& document, QDomElement& cell, const Text& text) {
    Empty(cell);
    if (text.empty()) return;
    cell.setAttribute(u"office:value-type"_s, u"string"_s);
    cell.setAttribute(u"calcext:value-type"_s, u"string"_s);
    for (const QString& line : XmlText(text).split(u'\n')) cell.appendChild(ParagraphOf(document, line));
}

}  // namespace

bool PutIntoFlatOdsSheet(QDomDocument& document, const QString& sheet, const std::vector<SheetCell>& cells) {
    const QDomElement table = TableNamed(document, sheet);
    if (table.isNull()) return false;
    Runs rows;
    AppendRows(rows, table);
    std::map<int, Runs> cellsOfRows;
    for (const SheetCell& cell : cells) {
        const QDomElement row = Single(rows, cell.row - 1);
        if (row.isNull()) continue;
        const auto [runs, isNew] = cellsOfRows.try_emplace(cell.row);
        if (isNew) runs->second = CellsOf(row);
        QDomElement element = Single(runs->second, cell.column);
        if (!element.isNull()) SetText(document, element, cell.text);
    }
    return true;
}

}  // namespace commtest
