#pragma once

#include <initializer_list>
#include <optional>

#include "host/store.h"

namespace commtest {

// The SQL of the catalogue for one engine. A "?" stands where a value is joined in (StatementWith); the
// statements without one are complete.
struct Statements {
    // Settings tables; their name as NameInStatement gives it
    Text protocolList;  // table
    Text dataTypeList;  // table
    Text gridLayout;    // table
    Text replacements;

    // Instruments and parameters
    Text instrumentsOfProtocol;    // protocol
    Text parametersOfInstrument;   // instrument
    Text parametersLengthApart;    // instrument
    Text parametersLengthInFront;  // instrument
    Text instrumentCode;           // protocol, instrument
    Text instrumentsByCode;        // protocol

    // Lists of the pages
    Text catalogueList;
    Text chipList;
    Text chipRecord;  // instrument, file

    // Recorded traffic
    Text recordingsList;
    Text recordedInstruments;       // protocol
    Text framesOfRecording;         // instrument, note
    Text notesOfInstrument;         // instrument
    Text recordedPair;              // instrument, reply, note
    Text renameRecordedInstrument;  // new name, old name
    Text changeNote;                // new note, old note
    Text deleteRecording;           // instrument, note

    // Import and export
    Text clearCatalogue;
    Text clearSomeInstruments;
    Text instrumentCount;
    Text parameterCount;
    Text classes;
    Text allInstruments;
    Text allParameters;
    Text exportRows;
};

// The page of an engine.
const Statements& StatementsOf(StoreEngine engine);

// The name of a table as it stands in a statement: quoted where it has a hyphen.
Text NameInStatement(StoreEngine engine, TextView table);

// The length of a parameter and its address joined to one text, as an expression of the engine; a null counts
// as empty.
Text LengthInFrontOfAddress(StoreEngine engine);

// A statement in whose order nulls come first, as they do unasked where the engine is another one.
Text OrderedAlike(StoreEngine engine, const Text& statement);

// The statement with which an engine copies all of itself into a new file; nothing where it has none.
std::optional<Text> CopyStatement(StoreEngine engine, const Text& path);

// Joins the values into a statement, one for each "?" in turn. Nothing is escaped: a value with a single
// quote in it breaks its statement, and the engine's error reaches the user.
Text StatementWith(TextView statement, std::initializer_list<TextView> values);

}  // namespace commtest
