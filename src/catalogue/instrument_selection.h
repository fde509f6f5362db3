#pragma once

namespace commtest {

class MainForm;

// A protocol name was chosen: its option button is chosen in turn (the first whose caption contains the
// name), and the display mode follows the protocol.
void ConCommTypeList_Click(MainForm& form);

// Option button `index` from 0. Demonstration is offered with the first protocol.
void ConMeterType_Click(MainForm& form, int index);

// What a click of the user on option button `index` does: the protocol of its caption is chosen as from the
// list of protocols. Error 9 behind the last option.
void ChooseProtocolOfType(MainForm& form, int index);

// Fills the list of instruments for the protocol named in ConCommTypeList and chooses the first. The
// catalogue's own code of the last instrument wins over the code of the option button. Errors of the store
// pass through.
void LoadInstrumentNames(MainForm& form);

// The catalogue holds other instruments than before: the list is filled anew for the protocol that is chosen,
// and the former instrument is chosen again where it is still there. Errors of the store pass through.
void LoadInstrumentsAnew(MainForm& form);

// Fills the parameter grid with the list of the instrument named in ConMeterName. CurrentRow stays;
// FirstDataRow stays with an instrument that has no "RW" row.
void ConMeterName_Click(MainForm& form);

}  // namespace commtest
