#include "cli/catalogue_actions.h"

namespace commtest {

Verb CatalogueVerb() {
    return {u"catalogue", u"动作 [选项]", u"建立目录", {}, nullptr, {}, {CatalogueCreate()}};
}

}  // namespace commtest
