#!/usr/bin/python3
"""Prints a sheet of a workbook as JSON, as python3-xlrd reads it:

    workbook_reader.py FILE SHEET

"cells" holds the rows: of each cell its text, its kind ("text", "number", "empty") and its look.
"""

import json
import sys

import xlrd

KINDS = {xlrd.XL_CELL_EMPTY: "empty", xlrd.XL_CELL_BLANK: "empty", xlrd.XL_CELL_TEXT: "text"}
ALIGNMENTS = {1: "left", 2: "center", 3: "right"}


def look_of(book, sheet, row, column):
    form = book.xf_list[sheet.cell_xf_index(row, column)]
    font = book.font_list[form.font_index]
    fill = book.colour_map.get(form.background.pattern_colour_index) if form.background.fill_pattern else None
    return {"font": font.name, "size": font.height / 20, "bold": bool(font.bold), "fill": fill,
            "align": ALIGNMENTS.get(form.alignment.hor_align), "frame": form.border.top_line_style,
            "format": book.format_map[form.format_key].format_str}


def main():
    path, name = sys.argv[1:]
    book = xlrd.open_workbook(path, formatting_info=True)
    sheet = book.sheet_by_name(name)
    cells = [[{"text": str(cell.value), "kind": KINDS.get(cell.ctype, "number"), "look": look_of(book, sheet, row, col)}
              for col, cell in enumerate(sheet.row(row))] for row in range(sheet.nrows)]
    names = {item.name: item.raw_formula.hex() for item in book.name_obj_list if item.builtin}
    json.dump({"cells": cells, "merged": sheet.merged_cells, "names": names,
               "widths": [sheet.colinfo_map[col].width for col in range(11)],
               "heights": [sheet.rowinfo_map[row].height for row in range(5)]}, sys.stdout)


main()
