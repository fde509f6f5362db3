#include <algorithm>

#include "cli/catalogue_access.h"
#include "cli/interrupt.h"
#include "cli/line_session.h"
#include "cli/search_report.h"
#include "cli/verb.h"
#include "commands/search_panel.h"
#include "runtime/number.h"
#include "search/instrument_search.h"
#include "session/events.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestAddress = 255;
constexpr int kBeginButton = 1;

// Which of the rates of the panel are searched.
using Rates = std::vector<std::size_t>;

struct SearchOptions {
    int from = 0;
    int to = 0;
    Rates rates;
    bool isAsWindow = false;
    Format format = Format::Plain;
};

OptionList SearchOptionList() {
    return {kFolderOption,
            kServerOption,
            kServerSettingsOption,
            {u"from", u"N", u"起始地址", u"1"},
            {u"to", u"N", u"终止地址", u"10"},
            {u"baud", u"9600,19200",
             u"波特率，可以有几个: 1200、2400、4800、9600、19200、28800、38400、57600", u"9600"},
            {u"protocol", u"名称", u"通讯协议，默认为目录中的第一个"},
            {u"instrument", u"名称", u"仪表，默认为协议的第一种"},
            kPortOption,
            {u"settings", u"9600,N,8,1", u"校验、数据位、停止位；波特率由 --baud 给出", u"9600,N,8,1"},
            {u"as-window", u"", u"和窗口中的搜索一样，给出的波特率之间的也搜索"},
            kFormatOption};
}

QString NameOfRate(std::size_t rate) {
    return QString::fromStdU16String(Text(kSearchBaudRates[rate])).trimmed();
}

Rates RatesOf(const Arguments& arguments) {
    QStringList known;
    for (std::size_t i = 0; i < kSearchBaudRates.size(); ++i) known += NameOfRate(i);
    Rates rates;
    for (const QString& name : arguments.Value(u"baud").split(u',')) {
        const qsizetype rate = known.indexOf(name.trimmed());
        if (rate < 0)
            throw arguments.BadValue(u"baud", u" "_s + known.join(u"、"_s) + u" 中的几个，用逗号隔开"_s);
        rates.push_back(static_cast<std::size_t>(rate));
    }
    std::sort(rates.begin(), rates.end());
    rates.erase(std::unique(rates.begin(), rates.end()), rates.end());
    return rates;
}

SearchOptions SearchOptionsOf(const Arguments& arguments) {
    arguments.Positional(0, u"");
    SearchOptions options;
    options.from = arguments.WholeNumber(u"from", 0, kLargestAddress);
    options.to = arguments.WholeNumber(u"to", options.from, kLargestAddress);
    options.rates = RatesOf(arguments);
    options.isAsWindow = arguments.Has(u"as-window");
    options.format = FormatOf(arguments);
    return options;
}

// The last address decides whether the protocol has all of them.
LineOptions LineOptionsOf(const Arguments& arguments, const SearchOptions& search, Console& console) {
    LineOptions options;
    if (arguments.Has(u"protocol")) options.protocol = arguments.Value(u"protocol").toStdU16String();
    if (arguments.Has(u"instrument")) options.instrument = arguments.Value(u"instrument").toStdU16String();
    options.address = WholeText(search.to);
    options.addressOption = u"to";
    options.interval = u"100";
    TakePortOptions(arguments, options);
    options.folder = ProgramFolderOf(arguments, console);
    options.catalogue = CataloguePlaceOf(arguments, CatalogueUse::Reading);
    return options;
}

// Ticked rates as walks of the core: one walk goes over all that lies between its first and its last rate.
std::vector<Rates> WalksOf(const SearchOptions& options) {
    if (options.isAsWindow) return {options.rates};
    std::vector<Rates> walks;
    for (const std::size_t rate : options.rates) walks.push_back({rate});
    return walks;
}

class Search {
  public:
    Search(LineSession& line, const SearchOptions& options, Console& console)
        : line_(line), console_(console), walks_(WalksOf(options)) {
        form_.ConSettingDE[0].Set(WholeText(options.from));
        form_.ConSettingDE[1].Set(WholeText(options.to));
    }

    LineSession::End Run() {
        line_.Looks = [this] { console_.ShowLive(ProgressLine()); };
        bool isInterrupted = false;
        const Interrupt interrupt([&] {
            isInterrupted = true;
            line_.Quit();
        });
        LineSession::End end = LineSession::End::Done;
        while (walk_ < walks_.size() && !isInterrupted && end == LineSession::End::Done) {
            Begin(walks_[walk_]);
            end = line_.Run([] { return false; });
            hits_.insert(hits_.end(), form_.SearchHits.begin(), form_.SearchHits.end());
            form_.SearchHits.clear();
            ++walk_;
        }
        line_.Stop();
        return end;
    }

    const std::vector<SearchHit>& Hits() const { return hits_; }

  private:
    void Begin(const Rates& rates) {
        for (std::size_t i = 0; i < form_.ConSettingBT.size(); ++i) {
            form_.ConSettingBT[i].Set(std::find(rates.begin(), rates.end(), i) != rates.end());
        }
        RunEvent(form_, [this] { FindMeter_Click(form_, kBeginButton); });
        if (walk_ > 0) SettleAtNewRate();
    }

    // As inside a walk, the first frame leaves a while behind the change.
    void SettleAtNewRate() {
        constexpr int kSettlingTime = 300;  // milliseconds
        RunEvent(form_, [this] { form_.MSComm1.SetPortOpen(true); });
        form_.PollTimer().SetInterval(kSettlingTime);
    }

    // Each walk goes over the same addresses.
    Text ProgressLine() const {
        constexpr std::int64_t kSecond = 1000;
        constexpr std::int64_t kAddress = 1500;  // milliseconds, as the core takes a silent one
        constexpr std::int64_t kChange = 300;
        const SearchProgress progress = ProgressOf(form_);
        const auto walks = static_cast<std::int64_t>(walks_.size());
        const auto behind = static_cast<std::int64_t>(walk_);
        const std::int64_t all = std::max<std::int64_t>(progress.all * walks, 1);
        const std::int64_t done = progress.all * behind + progress.done;
        const std::int64_t left =
            progress.millisecondsLeft + (walks - behind - 1) * (progress.all * kAddress + kChange);
        return u"搜索: 地址 " + WholeText(progress.address) + u"  波特率 " + progress.rate + u"  " +
               WholeText(done * 100 / all) + u" %  还需约 " + WholeText((left + kSecond - 1) / kSecond) +
               u" 秒  已找到 " + WholeText(static_cast<std::int64_t>(hits_.size()) + progress.found) + u" 台";
    }

    LineSession& line_;
    Console& console_;
    MainForm& form_ = line_.Form();
    std::vector<Rates> walks_;
    std::size_t walk_ = 0;
    std::vector<SearchHit> hits_;
};

ExitStatus StatusOf(LineSession::End end, bool hasHits) {
    if (end == LineSession::End::PortLost) return ExitStatus::NoAccess;
    const bool isGood = end == LineSession::End::Done && hasHits;
    return isGood ? ExitStatus::Good : ExitStatus::BadAnswer;
}

ExitStatus SearchLine(const Arguments& arguments, Console& console) {
    const SearchOptions options = SearchOptionsOf(arguments);
    const LineOptions lineOptions = LineOptionsOf(arguments, options, console);
    LineSession line(lineOptions, console);
    MainForm& form = line.Form();
    form.CurrentRow = form.ProtocolInUse().rows.firstRow(form);
    form.ConSettingComm.Set(lineOptions.port);
    line.Dialogs().Unsaid = {u"搜索"};
    line.Dialogs().ReasonOfError = u"搜索已停止。请检查目录中这种仪表的参数表";
    Search search(line, options, console);
    const LineSession::End end = search.Run();
    if (end == LineSession::End::NoPort) return ExitStatus::NoAccess;
    console.Print(SearchReport(search.Hits(), options.format));
    return StatusOf(end, !search.Hits().empty());
}

}  // namespace

Verb SearchVerb() {
    return {u"search", u"--from N --to N --baud 波特率 [选项]",
            u"在一段地址和几个波特率上搜索总线上的仪表，最后列出收到的应答", SearchOptionList(), SearchLine};
}

}  // namespace commtest
