#include "catalogue/catalogue_upgrade.h"

#include "catalogue/catalogue_backup.h"
#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/schema_version.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

// In a transaction that is kept or, asked only for the right, taken back.
void BringUp(Store& store, bool isKept) {
    const bool hasEnglishSettings = HasEnglishSettings(store);
    store.BeginTransaction();
    try {
        KeepOthersFromRewriting(store);
        if (!hasEnglishSettings) CreateEnglishSettings(store);
        NoteSchemaVersion(store);
        if (isKept) store.Commit();
    } catch (...) {
        PassOverError([&] { store.Rollback(); });
        throw;
    }
    if (!isKept) store.Rollback();
}

}  // namespace

Text UpgradeCatalogue(Store& store, ProgramFiles& files, const DateTime& now, const Text& spared) {
    const PatienceScope patience(store, Patience::Unlimited);
    BringUp(store, false);  // who may not makes no copy either
    const Text copy = BackUpCatalogue(store, files, now, spared);
    BringUp(store, true);
    MakeMissingIndexes(store);
    return copy;
}

}  // namespace commtest
