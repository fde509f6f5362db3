#include "window/catalogue_version.h"

#include "catalogue/catalogue_upgrade.h"
#include "catalogue/schema_version.h"
#include "host_qt/words.h"
#include "session/main_form.h"
#include "window/note_bar.h"
#include "window/pieces.h"

namespace commtest {

namespace {

void Upgrade(const Outside& outside, NoteBar& notes) {
    try {
        const Text copy = UpgradeCatalogue(outside.store, outside.files, outside.clock.Now());
        notes.Say(Words::tr("目录的表结构已升级，升级前的目录存为 %1").arg(ToQt(copy)));
    } catch (const RuntimeError& error) {
        notes.Warn(Words::tr("目录的表结构没有升级，照旧使用：%1").arg(ToQt(error.Message())));
    }
}

}  // namespace

void SettleCatalogueVersion(const MainForm& form, NoteBar& notes) {
    Store& store = form.outside.store;
    try {
        const int version = SchemaVersionOf(store);
        if (version > kSchemaVersion) {
            KeepFromWriting(store);
            notes.Warn(
                Words::tr("目录是较新的程序建立的，本程序只读取它，不改写。需要采集或导入时请升级程序"));
        } else if (version < kSchemaVersion && store.Engine() == StoreEngine::Sqlite) {
            Upgrade(form.outside, notes);
        }
    } catch (const RuntimeError&) {
        // A catalogue that tells nothing is used as it is.
    }
}

}  // namespace commtest
