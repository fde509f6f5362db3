#include "window/error_page.h"

#include <QPushButton>

#include "session/records.h"
#include "window/bindings.h"
#include "window/pieces.h"
#include "window/record_view.h"
#include "window/statistics_label.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStripHeight = 37;

}  // namespace

ErrorPage::ErrorPage(Binder& binder, const Theme& theme, QWidget* parent) : QWidget(parent), binder_(binder) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeStrip(theme));
    auto* errors = new RecordView(binder, theme, binder.Form().RichTextBox2, this);
    errors->setAccessibleName(u"错误记录"_s);
    layout->addWidget(errors, 1);
}

QWidget* ErrorPage::MakeStrip(const Theme& theme) {
    auto* strip = new QWidget(this);
    strip->setObjectName(u"strip"_s);
    strip->setAttribute(Qt::WA_StyledBackground);
    strip->setFixedHeight(kStripHeight);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(12, 4, 12, 4);
    line->setSpacing(8);
    line->addWidget(new StatisticsLabel(binder_, theme, 2, strip));
    line->addStretch();
    AddButton(*line, 0, u"清除错误记录"_s, u"清除 ErrorComm.ini 文件里的记录"_s);
    AddButton(*line, 1, u"刷新错误记录"_s, u"重新装入 ErrorComm.ini 文件里的记录"_s);
    auto* layout = new QVBoxLayout(strip);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(line, 1);
    layout->addWidget(MakeHairline(Qt::Horizontal));
    return strip;
}

void ErrorPage::AddButton(QHBoxLayout& line, int index, const QString& caption, const QString& tip) {
    MainForm& form = binder_.Form();
    auto* button = new QPushButton(caption, this);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this,
            [this, &form, index] { binder_.Event([&form, index] { ClearFileCommand_Click(form, index); }); });
    BindPresence(binder_, form.ClearFileCommand[static_cast<std::size_t>(index)], *button);
    line.addWidget(button);
}

}  // namespace commtest
