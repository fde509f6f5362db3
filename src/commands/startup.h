#pragma once

namespace commtest {

class MainForm;

// The work of the window's first activation; nothing on a later one. A step that fails is passed over and the
// next one runs. Throws ProgramEnds where another instance runs or the updater was started.
void Form_Activate(MainForm& form);

// Reads the stored settings into the controls, opens the catalogue and chooses the protocol; a missing key is
// written with its default. A step that fails is passed over.
void LoadSettings(MainForm& form);

// Opens the local catalogue behind a start that found none, and does what that start could not do: the lists,
// the layout of the grid, the stored protocol and instrument, the help text of a folder that was just made.
// The store's run-time error if it cannot be opened; a later step that fails is passed over.
void OpenCatalogueBehindStart(MainForm& form);

// Stores interval, address, count, protocol, instrument and catalogue mode.
void SaveSettings(MainForm& form);

// Double click on panel `panel` of the status bar, from 1: panel 1 offers the other kind of catalogue, from
// the next start on.
void StatusBar1_PanelDblClick(MainForm& form, int panel);

// The step of ConDelayTime's spin buttons follows its digits.
void ChangeTime_Change(MainForm& form);

// Closes the error file, stores the settings and ends the program, by ProgramEnds.
void Form_Unload(MainForm& form);

}  // namespace commtest
