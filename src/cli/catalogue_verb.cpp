#include "cli/catalogue_actions.h"

namespace commtest {

Verb CatalogueVerb() {
    return {u"catalogue",
            u"动作 [选项]",
            u"建立目录，导入、导出和检查参数表，写通道表和表格，恢复备份，在文件和服务器之间复制",
            {},
            nullptr,
            {},
            {CatalogueCreate(), CatalogueImport(), CatalogueExport(), CatalogueChannels(), CatalogueCheck(),
             CatalogueRestore(), CatalogueSpreadsheet(), CatalogueInfo(), CatalogueTransfer(),
             CatalogueLoad(), CatalogueDump()}};
}

}  // namespace commtest
