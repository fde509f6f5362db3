#pragma once

namespace commtest {

class MainForm;

// Protocol names and codes: ConCommTypeList, the captions of ConMeterType and ProtocolCodeOfType, one for
// each row of the catalogue.
void LoadProtocolList(MainForm& form);

// Names of the data types, for ConDataTypeList.
void LoadDataTypes(MainForm& form);

// Widths, merge settings, alignments and headings of the parameter grid's columns.
void LoadGridLayout(MainForm& form);

// A tab is shown: tab 2 loads the list of instruments into grid 1, tab 3 the list of recordings into grid 2.
void SSTab2_Click(MainForm& form);

}  // namespace commtest
