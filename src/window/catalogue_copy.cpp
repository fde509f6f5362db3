#include "window/catalogue_copy.h"

#include "catalogue/catalogue_backup.h"
#include "catalogue/catalogue_schema.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host/store.h"
#include "runtime/runtime_error.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

CatalogueCopy CopyOf(const Outside& outside, const Text& name) {
    const auto copy = outside.store.Another();
    copy->Open({StoreAddress::Kind::LocalFile, outside.files.PathOf(name), CatalogueTables()});
    return {name, MomentOfCopy(name), outside.files.OpenBytes(name)->Size(),
            InstrumentCatalogue(*copy).Size()};
}

}  // namespace

QDateTime MomentOfCopy(const Text& name) {
    constexpr qsizetype kLength = 15;  // YYYYMMDD-HHMMSS
    const qsizetype place = ToQt(name).indexOf(ToQt(kCatalogueCopyMark));
    if (place < 0) return {};
    return QDateTime::fromString(
        ToQt(name).mid(place + static_cast<qsizetype>(kCatalogueCopyMark.size()), kLength),
        u"yyyyMMdd-HHmmss"_s);
}

QList<CatalogueCopy> CopiesOfCatalogue(const Outside& outside) {
    QList<CatalogueCopy> copies;
    for (const Text& name : CatalogueBackups(outside.files))
        PassOverError([&] { copies += CopyOf(outside, name); });
    return copies;
}

}  // namespace commtest
