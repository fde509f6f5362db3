#include "window/nothing_found.h"

#include <QVBoxLayout>

#include "host_qt/words.h"
#include "window/pieces.h"

namespace commtest {

NothingFound::NothingFound(QWidget* parent) : QWidget(parent), words_(new QLabel(this)) {
    words_->setTextFormat(Qt::PlainText);
    ShowAsCaption(*words_);
    QPushButton* clear = MakeLineAction(Words::tr("清除筛选"));
    connect(clear, &QPushButton::clicked, this, &NothingFound::ClearWanted);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(4);
    layout->addStretch();
    layout->addWidget(words_, 0, Qt::AlignCenter);
    layout->addWidget(clear, 0, Qt::AlignCenter);
    layout->addStretch();
    hide();
}

void NothingFound::Show(bool shown, int index, const QString& words) {
    words_->setText(
        (index == 0 ? Words::tr("没有符合“%1”的参数") : Words::tr("没有符合“%1”的仪表")).arg(words));
    setVisible(shown);
}

}  // namespace commtest
