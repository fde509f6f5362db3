#include "catalogue/catalogue_lock.h"

#include <optional>

namespace commtest {

namespace {

// Gives 1 to who has the lock. Its number means nothing; every program takes the same.
std::optional<Text> LockStatement(StoreEngine engine) {
    switch (engine) {
        case StoreEngine::SqlServer:
            return u"SET NOCOUNT ON; DECLARE @got int; EXEC @got = sp_getapplock @Resource = 'CommTest', "
                   u"@LockMode = 'Exclusive', @LockOwner = 'Transaction', @LockTimeout = 0; "
                   u"SELECT CASE WHEN @got >= 0 THEN 1 ELSE 0 END";
        case StoreEngine::PostgreSql:
            return u"SELECT CASE WHEN pg_try_advisory_xact_lock(5704318) THEN 1 ELSE 0 END";
        case StoreEngine::Sqlite: break;
    }
    return std::nullopt;
}

}  // namespace

RewrittenElsewhere::RewrittenElsewhere()
    : RuntimeError(OfStore(u"另一个程序正在改写服务器上的目录，请等它结束后再试")) {}

void KeepOthersFromRewriting(Store& store) {
    const std::optional<Text> statement = LockStatement(store.Engine());
    if (statement && store.Query(*statement).At(0, 0) != u"1") throw RewrittenElsewhere();
}

}  // namespace commtest
