#include "support/stores_under_test.h"

#include "catalogue/catalogue_schema.h"
#include "catalogue/shipped_catalogue.h"

namespace commtest::testing {

std::unique_ptr<Store> MakeEmptyCatalogue(const StoreUnderTest& kind) {
    std::unique_ptr<Store> store = kind.makeBare();
    CreateCatalogueTables(*store);
    return store;
}

std::unique_ptr<Store> MakeShippedCatalogue(const StoreUnderTest& kind) {
    std::unique_ptr<Store> store = kind.makeBare();
    FillWithShippedCatalogue(*store);
    return store;
}

}  // namespace commtest::testing
