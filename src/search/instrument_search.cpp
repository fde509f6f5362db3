#include "search/instrument_search.h"

#include <algorithm>
#include <cmath>

#include "host/clock.h"
#include "host/dialogs.h"
#include "host/serial_port.h"
#include "runtime/number.h"
#include "session/cycle_step.h"
#include "session/main_form.h"
#include "session/port_settings.h"
#include "session/records.h"
#include "session/start_stop.h"
#include "session/wall_clock.h"

namespace commtest {

namespace {

constexpr std::int32_t kSettlingTime = 300;  // milliseconds of a port at its new rate
constexpr std::int32_t kSecondsOfADay = 24 * 60 * 60;

std::int32_t SecondsSince(std::int32_t start, const DateTime& now) {
    return (SecondsOfDay(now) - start + kSecondsOfADay) % kSecondsOfADay;
}

// From `first` on; the number of rates if none is ticked.
int FirstTickedRate(const MainForm& form, int first) {
    const auto count = static_cast<int>(form.ConSettingBT.size());
    while (first < count && !form.ConSettingBT[static_cast<std::size_t>(first)].Value()) ++first;
    return first;
}

bool IsRate(const MainForm& form, int index) { return index < static_cast<int>(form.ConSettingBT.size()); }

void TakeRate(MainForm& form) {
    const Text rate = Trim(kSearchBaudRates.at(static_cast<std::size_t>(form.SearchBaudIndex)));
    form.MSComm1.SetSettings(rate + u"," + Behind(form.MSComm1.Settings(), u','));
}

void ClosePort(MainForm& form) {
    if (form.MSComm1.PortOpen()) form.MSComm1.SetPortOpen(false);
}

void TakeRange(MainForm& form) {
    form.SearchStartAddress = ToWhole16(form.ConSettingDE[0].Value());
    form.SearchEndAddress = ToWhole16(form.ConSettingDE[1].Value());
    form.ConMeterAddr.Set(WholeText(form.SearchStartAddress));
}

void BeginNextRate(MainForm& form) {
    form.ConMeterAddr.Set(WholeText(form.SearchStartAddress));
    ClosePort(form);
    TakeRate(form);
    form.MSComm1.SetPortOpen(true);
    form.outside.clock.Sleep(kSettlingTime);
    ShowPortStatus(form);
}

void EndSearch(MainForm& form) {
    form.ConMeterAddr.Set(form.SearchSavedAddress);
    form.CommandCode %= command::kSearchOffset;
    form.FindFrame.SetVisible(false);
    form.ConDelayTime.Set(form.SearchSavedDelay);
    form.CycleStep = cycle_step::kIdle;
    const std::int32_t seconds = SecondsSince(form.SearchStartTime, form.outside.clock.Now());
    form.outside.dialogs.ShowMessage(u"搜索结束！总计搜索到 " + WholeText(form.SearchFoundCount) +
                                         u" 台仪表！耗时 " + WholeText(seconds) + u" 秒",
                                     {});
    ConCommSetting_LostFocus(form);  // Q217: the port stays open
}

// Of the rates that the walk takes: from the first ticked one to the last.
int LastRate(const MainForm& form) {
    int last = -1;
    for (int i = FirstTickedRate(form, 0); IsRate(form, i); i = FirstTickedRate(form, i + 1)) last = i;
    return last;
}

}  // namespace

SearchProgress ProgressOf(const MainForm& form) {
    constexpr std::int64_t kMillisecondsOfAnAddress = 1500;  // a silent one: five ticks of 300
    SearchProgress progress;
    progress.address = LeadingWholeNumber(form.ConMeterAddr.Value());
    progress.rate = Before(form.MSComm1.Settings(), u',');
    progress.rates = LastRate(form) - FirstTickedRate(form, 0) + 1;
    progress.rateNumber = form.SearchBaudIndex - FirstTickedRate(form, 0) + 1;
    progress.isTicked = IsRate(form, form.SearchBaudIndex) &&
                        form.ConSettingBT[static_cast<std::size_t>(form.SearchBaudIndex)].Value();
    const std::int64_t addresses = std::max(form.SearchEndAddress - form.SearchStartAddress + 1, 1);
    const std::int64_t tried =
        std::clamp<std::int64_t>(progress.address - form.SearchStartAddress, 0, addresses);
    const std::int64_t left = std::max<std::int64_t>(progress.rates - progress.rateNumber, 0);
    progress.done = (progress.rateNumber - 1) * addresses + tried;
    progress.all = progress.rates * addresses;
    progress.millisecondsLeft =
        (addresses - tried + left * addresses) * kMillisecondsOfAnAddress + left * kSettlingTime;
    progress.found = form.SearchFoundCount;
    return progress;
}

void FindCommMeter(MainForm& form) {
    form.outside.dialogs.ShowMessage(u"搜索可能将持续数分钟之久,请耐心等待！", {});
    form.SearchStartTime = SecondsOfDay(form.outside.clock.Now());
    form.SearchSavedAddress = form.ConMeterAddr.Value();
    form.CommandCode = Add32(form.CommandCode, command::kSearchOffset);
    ConCommMessage_DblClick(form);
    form.Record().Clear();
    form.SearchFoundCount = 0;
    form.SearchHits.clear();
    form.SearchSavedDelay = form.ConDelayTime.Value();
    form.ConDelayTime.Set(u"1");
    ClosePort(form);
    form.MSComm1.SetCommPort(ToWhole16(Trim(Mid(form.ConSettingComm.Value(), 4))));
    TakeRange(form);
    form.SearchBaudIndex = static_cast<std::int16_t>(FirstTickedRate(form, 0));
    if (!IsRate(form, form.SearchBaudIndex)) return;  // Q218: the state reached so far stays
    TakeRate(form);
    if (!form.IsRunning()) StartOrStop(form, {StopCause::User});
    ShowPortStatus(form);
    form.CycleStep = cycle_step::kFirstOfSearch;
    form.PollTimer().SetEnabled(true);
}

bool NextSearchStep(MainForm& form) {
    const double next = ToNumber(form.ConMeterAddr.Value()) + 1;
    form.ConMeterAddr.Set(NumberText(next));
    if (std::floor(next) <= form.SearchEndAddress) return true;
    form.SearchBaudIndex = Add16(form.SearchBaudIndex, 1);
    // Q219: a ticked one further on is enough, and the rate at the index is taken.
    if (IsRate(form, FirstTickedRate(form, form.SearchBaudIndex))) {
        BeginNextRate(form);
        return true;
    }
    EndSearch(form);
    return false;
}

}  // namespace commtest
