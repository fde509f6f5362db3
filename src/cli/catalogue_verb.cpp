#include "cli/catalogue_actions.h"

namespace commtest {

Verb CatalogueVerb() {
    return {u"catalogue",
            u"动作 [选项]",
            u"建立目录，导出参数表，检查参数表，写通道表",
            {},
            nullptr,
            {},
            {CatalogueCreate(), CatalogueExport(), CatalogueChannels(), CatalogueCheck()}};
}

}  // namespace commtest
