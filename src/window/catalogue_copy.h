#pragma once

#include <QDateTime>

#include "catalogue/instrument_catalogue.h"
#include "session/main_form.h"

namespace commtest {

// The moment that the name of a catalogue's copy tells; not valid where it tells none.
QDateTime MomentOfCopy(const Text& name);

// A copy of the catalogue that can be brought back.
struct CatalogueCopy {
    Text name;
    QDateTime moment;
    std::uint64_t bytes = 0;
    CatalogueSize size;
};

// Those of the program folder that can be read, the youngest first.
QList<CatalogueCopy> CopiesOfCatalogue(const Outside& outside);

}  // namespace commtest
