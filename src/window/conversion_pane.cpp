#include "window/conversion_pane.h"

#include <QVBoxLayout>

#include "session/grid_rows.h"
#include "window/empty_pages.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitleHeight = 24;
constexpr int kPadding = 8;

}  // namespace

ConversionPane::ConversionPane(Binder& binder, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      form_(binder.Form()),
      epoch_(form_.ParameterGrid().Epoch()),
      title_(new QLabel(this)),
      edge_(MakeHairline(Qt::Horizontal)) {
    title_->setObjectName(u"conversionTitle"_s);
    title_->setTextFormat(Qt::PlainText);
    title_->setFixedHeight(kTitleHeight);
    title_->setContentsMargins(kPadding, 0, kPadding, 0);
    title_->setAutoFillBackground(true);
    ShowAsCaption(*title_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(title_);
    layout->addWidget(edge_);
    RecordView* explanation = MakeCommPane(binder, theme, 0, this);
    layout->addWidget(explanation, 1);
    AddEmptyExplanationState(binder, theme, *explanation);
    binder.Watch(form_.Explanation(), [this] { ShowTitle(); });
    binder.AtEachLook([this] { FollowInstrument(); });
}

void ConversionPane::NameRow(int row) {
    const Grid& grid = form_.ParameterGrid();
    title_->setText(ToQt(grid.Cell(row, column::kName)) + u' ' + ToQt(grid.Cell(row, column::kAddress)));
}

void ConversionPane::ShowTitle() {
    const bool hasText = !form_.Explanation().Blocks().empty();
    title_->setVisible(hasText);
    edge_->setVisible(hasText);
}

void ConversionPane::FollowInstrument() {
    if (epoch_ == form_.ParameterGrid().Epoch()) return;
    epoch_ = form_.ParameterGrid().Epoch();
    title_->clear();
    form_.Explanation().Clear();
}

}  // namespace commtest
