#include "catalogue/catalogue_connection.h"

#include <array>

#include "catalogue/catalogue_schema.h"
#include "host/file_names.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"

namespace commtest {

namespace {

constexpr int kServerMode = 0;
constexpr int kLocalMode = 1;

// The values of the first four lines, each behind the first blank of its line; a missing line has none.
std::array<Text, 4> ServerValues(TextView file) {
    std::array<Text, 4> values;
    for (Text& value : values) {
        const auto lineEnd = file.find(u'\n');
        Text line(file.substr(0, lineEnd));
        if (line.ends_with(u'\r')) line.pop_back();
        value = Trim(Behind(line, u' '));
        file = lineEnd == TextView::npos ? TextView() : file.substr(lineEnd + 1);
    }
    return values;
}

}  // namespace

StoreAddress LocalCatalogue(const ProgramFiles& files) {
    return {StoreAddress::Kind::LocalFile, files.PathOf(Text(kCatalogueFileName)), CatalogueTables()};
}

StoreAddress ServerCatalogue(const ProgramFiles& files) {
    const auto [server, user, password, database] = ServerValues(files.ReadText(Text(kServerFileName)));
    return {StoreAddress::Kind::Server,
            u"driver={SQL Server};Server=" + server + u";uid=" + user + u";pwd=" + password + u";database=" +
                database,
            CatalogueTables()};
}

void OpenCatalogue(MainForm& form, int mode) {
    TextControl& panel = form.StatusBar1[0];
    PassOverErrors(
        [&] {
            form.store.Open(mode == kServerMode ? ServerCatalogue(form.files) : LocalCatalogue(form.files));
        },
        // A mode that is neither opens the local file and is still called the network's.
        [&] { panel.Set(panel.Value() + (mode == kLocalMode ? u"    本地数据库" : u"    网络数据库")); });
}

}  // namespace commtest
