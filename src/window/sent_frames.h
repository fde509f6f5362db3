#pragma once

#include <QComboBox>
#include <QLabel>
#include <QTimer>

#include "window/binder.h"

namespace commtest {

// ConSendOutString: the frame that goes out, over the list of those that were sent. It is there to be looked
// at: the list's current row and a chosen entry are shown in both notations, and nothing is sent.
class SentFrames : public QComboBox {
    Q_OBJECT

  public:
    SentFrames(Binder& binder, QWidget* parent);

    void showPopup() override;
    void hidePopup() override;

    // What the hint says; empty while there is none.
    QString Hint() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void ShowHint(const Text& frame, QPoint globalPlace);
    void ShowHintOfRow(int row);
    void HideHint();

    const ListControl& frames_;
    QWidget* hint_;
    QLabel* words_;
    QTimer away_;
};

}  // namespace commtest
