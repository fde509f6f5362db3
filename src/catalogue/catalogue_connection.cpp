#include "catalogue/catalogue_connection.h"

#include "catalogue/catalogue_schema.h"
#include "catalogue/update_check.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host/store.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kServerMode = 0;
constexpr int kLocalMode = 1;

// What Setup.ini says in its first four lines, in their order.
struct ServerFile {
    Text server;
    Text user;
    Text password;
    Text database;
};

// The value of the next line, behind its first blank.
Text NextValue(LineReader& lines) {
    const auto line = lines.Next();
    if (!line) throw RuntimeError(RuntimeError::kPastEndOfFile);
    return Trim(Behind(*line, u' '));
}

ServerFile ReadServerFile(const ProgramFiles& files, const Text& name = Text(kServerFileName)) {
    const auto lines = files.ReadLines(name);
    ServerFile file;
    for (Text* value : {&file.server, &file.user, &file.password, &file.database}) *value = NextValue(*lines);
    return file;
}

StoreAddress AddressOf(const ServerFile& file) {
    return {StoreAddress::Kind::Server,
            u"driver={SQL Server};Server=" + file.server + u";uid=" + file.user + u";pwd=" + file.password +
                u";database=" + file.database,
            CatalogueTables()};
}

// Q164: the lines of the server and of its user are also folder and name of the program's file.
void OpenServerCatalogue(MainForm& form) {
    const ServerFile file = ReadServerFile(form.outside.files);
    PassOverError([&] { OfferUpdate(form, file.server, file.user); });
    form.outside.store.Open(AddressOf(file));
}

void OpenServerOrSayWhyNot(MainForm& form) {
    form.ServerProblem.clear();
    try {
        OpenServerCatalogue(form);
    } catch (const RuntimeError& error) {
        form.ServerProblem = error.StandardMessage();
    }
}

}  // namespace

StoreAddress LocalCatalogue(const ProgramFiles& files) {
    return {StoreAddress::Kind::LocalFile, files.PathOf(Text(kCatalogueFileName)), CatalogueTables()};
}

StoreAddress ServerCatalogue(const ProgramFiles& files, const Text& name) {
    return AddressOf(ReadServerFile(files, name));
}

void OpenCatalogue(MainForm& form, int mode) {
    TextControl& panel = form.StatusBar1[0];
    PassOverErrors(
        [&] {
            if (mode == kServerMode) {
                OpenServerOrSayWhyNot(form);
            } else {
                form.outside.store.Open(LocalCatalogue(form.outside.files));
            }
        },
        // Q167, Q166: any mode but 1 is called the network's, and an open that failed has its word, too.
        [&] { panel.Set(panel.Value() + (mode == kLocalMode ? u"    本地数据库" : u"    网络数据库")); });
}

}  // namespace commtest
