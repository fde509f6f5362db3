#include "window/missing_catalogue.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTimer>

#include "catalogue/shipped_catalogue.h"
#include "commands/startup.h"
#include "host/file_names.h"
#include "host/store.h"
#include "host_qt/program_folder.h"
#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "window/catalogue_box.h"
#include "window/catalogue_version.h"
#include "window/empty_state.h"
#include "window/grid_view.h"
#include "window/kept_picture.h"
#include "window/main_window.h"
#include "window/note_bar.h"
#include "window/pieces.h"
#include "window/sidebar.h"
#include "window/state_line.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kProtocolKey = u"Window/Protocol"_s;
const QString kInstrumentKey = u"Window/Instrument"_s;
const QString kFolderKey = u"Window/Folder"_s;

}  // namespace

MissingCatalogue::MissingCatalogue(MainForm& form, FolderFiles& files, QSettings& settings)
    : form_(form), files_(files), settings_(settings) {
    if (!form.ParameterGrid().Redraw) LayOutEmptyGrid(form);
    // A page of a catalogue that is not there says so; its list asks for nothing.
    form.SSTab2.Click = [this, click = form.SSTab2.Click](int tab) {
        if (IsOpen() && click) click(tab);
    };
}

QString MissingCatalogue::RememberedFolder(const QSettings& settings) {
    const QString folder = settings.value(kFolderKey).toString();
    const bool hasCatalogue = !folder.isEmpty() && QDir(folder).exists(ToQt(kCatalogueFileName));
    return hasCatalogue ? folder : QString();
}

void MissingCatalogue::ShowIn(MainWindow& window, const Theme& theme) {
    window_ = &window;
    theme_ = &theme;
    window.State().AddSource(StateLine::Rank::Stopped, [this]() -> std::optional<StateMessage> {
        if (IsOpen()) return {};
        return StateMessage{.glyph = Glyph::Information,
                            .head = Words::tr("没有仪表目录"),
                            .text = Words::tr("通讯需要先选定一台仪表"),
                            .action = Words::tr("打开目录"),
                            .act = [this] { Ask(); }};
    });
    connect(&window, &MainWindow::ListMade, this, &MissingCatalogue::CoverList);
    if (!IsOpen()) {
        window.LeftSide().ShowFormerChoice(settings_.value(kProtocolKey).toString(),
                                           settings_.value(kInstrumentKey).toString());
        QTimer::singleShot(0, this, &MissingCatalogue::Ask);
    } else {
        QTimer::singleShot(0, this, [this] { SettleCatalogueVersion(form_, window_->Notes()); });
    }
}

void MissingCatalogue::CoverList(GridView& list) {
    auto* state = new EmptyState(u"special-address"_s,
                                 {Words::tr("没有仪表目录"),
                                  Words::tr("通讯需要先选定一台仪表"),
                                  {{Words::tr("打开目录"), [this] { Ask(); }}}},
                                 *theme_, &list);
    state->CoverWhile(window_->Views(), [this] { return !IsOpen(); });
}

bool MissingCatalogue::IsOpen() const { return form_.outside.store.IsOpen(); }

QString MissingCatalogue::Path() const {
    return QString::fromStdU16String(files_.PathOf(Text(kCatalogueFileName)));
}

// --- The ways out ---

void MissingCatalogue::Ask() {
    if (IsOpen() || box_) return;
    const QString problem = TryToOpen();
    if (IsOpen()) return;
    box_ = new CatalogueBox(*theme_, window_);
    connect(box_, &CatalogueBox::CreationWanted, this, &MissingCatalogue::Create);
    connect(box_, &CatalogueBox::FolderWanted, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(box_, Words::tr("选择文件夹"));
        if (!folder.isEmpty()) UseFolder(folder);
    });
    connect(box_, &QDialog::rejected, this, [this] {
        const QString instrument = settings_.value(kInstrumentKey).toString();
        if (instrument.isEmpty()) return;
        window_->Notes().Say(
            Words::tr("上次的仪表：%1，%2").arg(settings_.value(kProtocolKey).toString(), instrument));
    });
    Say(problem);
    box_->open();
}

void MissingCatalogue::Say(const QString& problem) {
    const bool hasFile = QFile::exists(Path());
    const QString waysOut =
        hasFile ? Words::tr("%1。可以选择已有目录所在的文件夹；在此新建时，原文件改名保留。").arg(problem)
                : Words::tr("文件不存在。可以在这里新建一个带示例仪表的目录，或选择已有目录所在的文件夹。");
    box_->Say(Path(), waysOut + Words::tr("上次选定的协议和仪表会保留。"), hasFile);
}

void MissingCatalogue::Create() {
    try {
        const QString former = KeepFormerFile();
        CreateProgramFolder(files_.Folder().toStdU16String(), FillWithShippedCatalogue);
        if (!former.isEmpty()) window_->Notes().Say(Words::tr("原文件存为 %1").arg(former));
    } catch (const RuntimeError& error) {
        box_->Say(Path(), QString::fromStdU16String(error.StandardMessage()), true);
        return;
    }
    OpenOrSay();
}

// A file that is no catalogue may still be somebody's: it only gets another name. Empty if there is none.
QString MissingCatalogue::KeepFormerFile() {
    if (!QFile::exists(Path())) return {};
    const QString former = Path() + QDateTime::currentDateTime().toString(u".yyyyMMddHHmmss"_s);
    if (!QFile::rename(Path(), former)) throw RuntimeError(RuntimeError::kBadFile);
    return former;
}

void MissingCatalogue::UseFolder(const QString& folder) {
    files_.MoveTo(folder);
    OpenOrSay();
    if (IsOpen() && remembersFolder_) settings_.setValue(kFolderKey, files_.Folder());
}

void MissingCatalogue::OpenOrSay() {
    const QString problem = TryToOpen();
    if (IsOpen()) {
        box_->accept();
    } else {
        Say(problem);
    }
}

QString MissingCatalogue::TryToOpen() {
    QString problem;
    window_->Views().Event([&] {
        try {
            OpenCatalogueBehindStart(form_);
            SettleCatalogueVersion(form_, window_->Notes());
        } catch (const RuntimeError& error) {
            problem = QString::fromStdU16String(error.Message());
        }
    });
    // The path stands beside it.
    return problem.startsWith(Path()) ? problem.mid(Path().size() + 1) : problem;
}

}  // namespace commtest
