#include "catalogue/recordings.h"
#include "cli/poll_run.h"
#include "cli/recording_choice.h"
#include "cli/verb.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

OptionList CaptureOptionList() {
    OptionList options = LineOptionList();
    options.push_back(kNoteOption);
    for (const OptionList* more : {&ReadingOptionList(), &RunOptionList()}) {
        options.insert(options.end(), more->begin(), more->end());
    }
    return options;
}

void TellDeleted(const PairCount& count, const Text& note, Console& console) {
    if (count.deleted == 0) return;
    console.Tell(u"说明 \"" + note + u"\" 下有 " + WholeText(count.deleted) +
                 u" 条已删除的数据，回送相同的不再采集。要恢复请用 commtest-cli recordings undelete");
}

Text CountIn(const Recordings& recordings, const MainForm& form, const Text& note) {
    Text words = u"新采集 " + WholeText(form.CapturedCount) + u" 条";
    PassOverError(
        [&] { words += u"，共 " + WholeText(recordings.CountOf(form.InstrumentName(), note).all) + u" 条"; });
    if (form.MissedPairCount > 0)
        words += u"，服务器没有应答而未采集 " + WholeText(form.MissedPairCount) + u" 条";
    return words;
}

ExitStatus Capture(const Arguments& arguments, Console& console) {
    arguments.Positional(0, u"");
    const Text note = NoteOf(arguments);
    const ReadingOptions reading = ReadingOptionsOf(arguments);
    const RunOptions run = RunOptionsOf(arguments);
    LineOptions lineOptions = LineOptionsOf(arguments, console);
    lineOptions.catalogue = CataloguePlaceOf(arguments, CatalogueUse::Writing);
    LineSession line(lineOptions, console);
    MainForm& form = line.Form();
    ChooseReading(form, reading);
    form.CaptureNote = note;
    form.ConSaveData.Set(true);
    TellDeleted(Recordings(form.outside.store).CountOf(form.InstrumentName(), note), note, console);
    const ExitStatus status = PollAndReport(line, lineOptions, run, console);
    console.Tell(u"说明 \"" + note + u"\": " + CountIn(Recordings(form.outside.store), form, note));
    return status;
}

}  // namespace

Verb CaptureVerb() {
    return {u"capture", u"--protocol 名称 --instrument 名称 --note 说明 [选项]",
            u"轮询仪表并把收到的数据存入目录，作为演示数据", CaptureOptionList(), Capture};
}

}  // namespace commtest
