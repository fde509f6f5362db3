#include "catalogue/catalogue_upgrade.h"

#include "catalogue/catalogue_backup.h"
#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/schema_version.h"
#include "runtime/runtime_error.h"

namespace commtest {

Text UpgradeCatalogue(Store& store, ProgramFiles& files, const DateTime& now, const Text& spared) {
    const PatienceScope patience(store, Patience::Unlimited);
    const bool hasEnglishSettings = HasEnglishSettings(store);
    const Text copy = BackUpCatalogue(store, files, now, spared);
    store.BeginTransaction();
    try {
        KeepOthersFromRewriting(store);
        if (!hasEnglishSettings) CreateEnglishSettings(store);
        NoteSchemaVersion(store);
        store.Commit();
    } catch (...) {
        PassOverError([&] { store.Rollback(); });
        throw;
    }
    MakeMissingIndexes(store);
    return copy;
}

}  // namespace commtest
