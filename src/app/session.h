#pragma once

#include "app/app_companions.h"
#include "session/main_form.h"
#include "tools/data_tools.h"

namespace commtest {

// A whole session: the form and the tool window over their outside world, their handlers wired.
class Session {
  public:
    explicit Session(const Outside& outside, const Face& face = kChineseFace);

    MainForm& Form() { return form_; }
    DataTools& Tools() { return tools_; }

  private:
    DataTools tools_;
    AppCompanions companions_;
    MainForm form_;
};

// What every start needs of an open catalogue: protocol list, data types, layout of the parameter grid.
void LoadCatalogueLists(MainForm& form);

}  // namespace commtest
