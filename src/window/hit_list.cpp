#include "window/hit_list.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSaveFile>
#include <QUrl>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "host_qt/words.h"
#include "runtime/number.h"
#include "session/cycle_step.h"
#include "session/port_settings.h"
#include "window/file_to_write.h"
#include "window/hit_table.h"
#include "window/note_bar.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitleHeight = 24;
constexpr int kHeaderHeight = 26;
constexpr int kRowHeight = 22;
constexpr std::array<int, HitModel::kColumns> kWidths = {56, 72, 72, 136, 108};

}  // namespace

HitList::HitList(Binder& binder, const Theme& theme, NoteBar& notes, SearchReturn& wayBack, QWidget* parent)
    : QWidget(parent),
      binder_(binder),
      form_(binder.Form()),
      notes_(notes),
      wayBack_(wayBack),
      hits_(new HitModel(form_, this)),
      table_(new QTableView(this)),
      title_(new QLabel(this)),
      takeOver_(MakeLineAction(Words::tr("采用"))),
      export_(MakeLineAction(Words::tr("导出 CSV"))) {
    MakeTable(theme);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeTitle());
    layout->addWidget(MakeHairline(Qt::Horizontal));
    layout->addWidget(table_, 1);
    connect(takeOver_, &QPushButton::clicked, this, &HitList::TakeOverCurrent);
    connect(export_, &QPushButton::clicked, this, &HitList::AskForFile);
    binder.AtEachLook([this] { Follow(); });
    binder.Watch(form_.Explanation(), [this] { isOver_ = false; });
}

QWidget* HitList::MakeTitle() {
    auto* line = new QWidget(this);
    line->setAutoFillBackground(true);
    line->setFixedHeight(kTitleHeight);
    ShowAsCaption(*title_);
    for (QPushButton* action : {takeOver_, export_}) action->setFixedHeight(kTitleHeight - 2);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(8, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(title_, 1);
    layout->addWidget(takeOver_);
    layout->addWidget(export_);
    return line;
}

void HitList::MakeTable(const Theme& theme) {
    table_->setModel(hits_);
    table_->setItemDelegate(new HitDelegate(form_, theme, table_));
    table_->setObjectName(u"hitTable"_s);
    table_->setAccessibleName(Words::tr("搜索结果"));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(kRowHeight);
    QHeaderView& header = *table_->horizontalHeader();
    header.setFixedHeight(kHeaderHeight);
    header.setFont(Theme::CaptionFont());
    header.setHighlightSections(false);
    for (int column = 0; column < HitModel::kColumns; ++column)
        table_->setColumnWidth(column, kWidths[static_cast<std::size_t>(column)]);
    header.setStretchLastSection(true);
    table_->installEventFilter(this);
    connect(table_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& hit) { TakeOver(hit.row()); });
}

void HitList::FollowInTabOrder(QWidget& former) {
    setTabOrder(&former, table_);
    setTabOrder(table_, takeOver_);
    setTabOrder(takeOver_, export_);
}

void HitList::Follow() {
    hits_->Follow();
    FollowEnd();
    ShowTitle();
}

// The box of the end stands while the session still runs, in no step of the cycle.
void HitList::FollowEnd() {
    const SearchState before = std::exchange(state_, StateOfSearch(form_));
    if (state_ != SearchState::None) isOver_ = false;
    if (state_ == SearchState::None && before == SearchState::UnderWay) isOver_ = hits_->rowCount() > 0;
    if (form_.IsRunning() && form_.CycleStep != cycle_step::kIdle) isOver_ = false;
}

void HitList::ShowTitle() {
    const int hits = hits_->rowCount();
    const bool mayBeTaken = hits > 0 && state_ != SearchState::UnderWay;
    QString words = Words::tr("搜索结果 %1 台", nullptr, hits).arg(hits);
    if (mayBeTaken) words += Words::tr("，双击采用");
    title_->setText(words);
    takeOver_->setVisible(mayBeTaken);
    export_->setVisible(hits > 0);
}

bool HitList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            TakeOverCurrent();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HitList::TakeOverCurrent() {
    const QModelIndex current = table_->currentIndex();
    TakeOver(current.isValid() ? current.row() : 0);
}

void HitList::TakeOver(int row) {
    if (row >= hits_->rowCount()) return;
    if (state_ == SearchState::UnderWay) return notes_.Say(Words::tr("搜索进行中，停止后可采用"));
    const SearchHit hit = form_.SearchHits[static_cast<std::size_t>(row)];
    binder_.Event([this, &hit] {
        wayBack_.GoBack();
        form_.ConMeterAddr.Set(WholeText(hit.address));
        form_.BaudRate().Set(hit.rate);
        ConCommSetting_LostFocus(form_);
    });
    notes_.Say(Words::tr("已采用：地址 %1，%2 波特").arg(hit.address).arg(ToQt(hit.rate)));
}

// --- The file ---

void HitList::AskForFile() {
    const QString path = AskForFileToWrite(this, Words::tr("导出搜索结果"), Words::tr("搜索结果.csv"),
                                           u"CSV (*.csv)"_s, u"csv"_s);
    if (!path.isEmpty()) SaveTo(path);
}

void HitList::SaveTo(const QString& path) {
    QSaveFile file(path);
    const QByteArray text = hits_->AsCsv();
    const bool isSaved = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    if (!isSaved) return notes_.Warn(Words::tr("没有导出：%1，%2").arg(path, file.errorString()));
    const QFileInfo saved(path);
    notes_.Ask(Words::tr("已导出 %1 行：%2", nullptr, hits_->rowCount())
                   .arg(hits_->rowCount())
                   .arg(saved.fileName()),
               Glyph::Tick, Words::tr("打开文件夹"),
               [folder = saved.absolutePath()] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
}

}  // namespace commtest
