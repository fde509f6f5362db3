#include <algorithm>
#include <vector>

#include "catalogue/recordings.h"
#include "cli/catalogue_access.h"
#include "cli/poll_run.h"
#include "cli/recording_choice.h"
#include "cli/verb.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "replay/replay_script.h"
#include "runtime/number.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kInterval = 1000;  // milliseconds between two exchanges of a replay

OptionList ReplayOptionList() {
    OptionList options = {
        kFolderOption,
        kServerOption,
        kServerSettingsOption,
        {u"instrument", u"名称", u"演示数据的仪表，名称的一部分即可，见 recordings list"},
        kNoteOption,
        {u"speed", u"1|N|max", u"倍速: 间隔为 1000 毫秒除以 N，max 时没有间隔", u"1"},
        {u"show", u"ascii|hex", u"记录中数据串的显示方式，默认随协议"},
        kFaceOption,
    };
    options.insert(options.end(), RunOptionList().begin(), RunOptionList().end());
    return options;
}

int IntervalOf(const Arguments& arguments) {
    if (arguments.Value(u"speed") == u"max") return 0;
    bool isNumber = false;
    const int speed = arguments.Value(u"speed").toInt(&isNumber);
    if (!isNumber || speed < 1 || speed > kInterval) {
        throw arguments.BadValue(u"speed", u" 1 到 %1 的整数，或 max"_s.arg(kInterval));
    }
    return kInterval / speed;
}

std::vector<RecordingSummary> ToBePlayed(std::vector<RecordingSummary> recordings) {
    std::erase_if(recordings, [](const RecordingSummary& one) { return one.deleted == one.exchanges; });
    return recordings;
}

// The recording of that instrument, or of the only one whose name has the word as a part.
RecordingSummary RecordingMeant(const Recordings& recordings, const Text& word, const Text& note) {
    const std::vector<RecordingSummary> exact = ToBePlayed(recordings.Of(word, note));
    if (!exact.empty()) return exact.front();
    std::vector<RecordingSummary> fitting = ToBePlayed(recordings.OfNote(note));
    std::erase_if(fitting, [&](const RecordingSummary& one) { return !Contains(one.instrument, word); });
    if (fitting.empty()) throw NoRecording(word, note);
    std::vector<Text> names;
    for (const RecordingSummary& one : fitting) names.push_back(one.instrument);
    const Text meant = InstrumentMeant(word, names);
    return *std::find_if(fitting.begin(), fitting.end(),
                         [&](const RecordingSummary& one) { return one.instrument == meant; });
}

// A server that does not answer is asked once.
void ChooseRecording(LineOptions& options, const Text& note, Console& console) {
    CatalogueStore store;
    options.catalogue = OpenCatalogueOf(FolderFiles(options.folder), store, options.catalogue, console);
    const RecordingSummary meant = RecordingMeant(Recordings(store), options.instrument, note);
    options.instrument = meant.instrument;
    options.protocol = meant.protocol;
}

ExitStatus Replay(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    LineOptions options;
    options.instrument = arguments.Value(u"instrument").toStdU16String();
    const Text note = NoteOf(arguments);
    options.interval = WholeText(IntervalOf(arguments));
    options.showMode = ShowModeOf(arguments);
    options.words = &WordsOf(arguments);
    const RunOptions run = RunOptionsOf(arguments);
    options.folder = ProgramFolderOf(arguments, console);
    options.catalogue = CataloguePlaceOf(arguments, CatalogueUse::Reading);
    ChooseRecording(options, note, console);
    options.address = u"1";
    options.settings = u"9600,N,8,1";
    options.port = u"COM1";  // the session wants one, and nothing opens it
    LineSession line(options, console);
    line.Dialogs().Unsaid = {u"请在 演示数据 表格里"};
    MainForm& form = line.Form();
    form.ConMyCommDriver.Set(true);
    SelectRecording(form, options.protocol, options.instrument, note);
    if (options.showMode) form.ShowMode.Choose(*options.showMode);
    form.ConDelayTime.Set(options.interval);
    options.port.clear();
    options.settings.clear();
    return PollAndReport(line, options, run, console);
}

}  // namespace

Verb ReplayVerb() {
    return {u"replay", u"--instrument 名称 --note 说明 [选项]",
            u"不用串口，重放存在目录中的演示数据，结果和 poll 一样", ReplayOptionList(), Replay};
}

}  // namespace commtest
