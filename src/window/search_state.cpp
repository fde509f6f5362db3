#include "window/search_state.h"

#include "host/serial_port.h"
#include "session/port_settings.h"

namespace commtest {

SearchState StateOfSearch(const MainForm& form) {
    const bool isOfSearch =
        form.CommandCode >= command::kFirstOfSearch && form.CommandCode <= command::kLastOfSearch;
    if (!isOfSearch) return SearchState::None;
    return form.IsRunning() ? SearchState::UnderWay : SearchState::BrokenOff;
}

void SearchReturn::NoteBefore() {
    if (before_ && StateOfSearch(form_) != SearchState::None) return;
    before_ = {form_.ConMeterAddr.Value(), form_.ConDelayTime.Value(), form_.MSComm1.CommPort(),
               form_.MSComm1.Settings(), form_.CommandCode};
}

void SearchReturn::GoBack() {
    if (!IsOffered()) return;
    form_.CommandCode = before_->commandCode;
    form_.ConMeterAddr.Set(before_->address);
    form_.ConDelayTime.Set(before_->interval);
    if (form_.MSComm1.PortOpen()) form_.MSComm1.SetPortOpen(false);
    form_.MSComm1.SetCommPort(before_->port);
    form_.MSComm1.SetSettings(before_->settings);
    ShowPortStatus(form_);
}

}  // namespace commtest
