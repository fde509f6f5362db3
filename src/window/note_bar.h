#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "window/theme.h"

namespace commtest {

// The passing word to the user, in the status bar: one at a time, cut off where there is no room, whole in
// its tooltip and for those who hear it.
class NoteBar : public QWidget {
    Q_OBJECT

  public:
    explicit NoteBar(const Theme& theme, QWidget* parent = nullptr);

    void Say(const QString& text);   // for six seconds
    void Warn(const QString& text);  // until the next one or a click

    // For ten seconds, counted down; the action can be taken once.
    void Offer(const QString& text, const QString& action, std::function<void()> take);
    bool HasOffer() const { return take_ != nullptr; }
    void TakeOffer();
    // Ends an offer that has become void; another word stays.
    void WithdrawOffer();

    QString Text() const { return text_; }  // empty while nothing is said

    static constexpr int kSecondsOfAnOffer = 10;

  signals:
    void Ended();  // nothing is said any more

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Show(const QString& text, bool isFailure);
    void CountDown();
    void End();
    void Elide();

    const Theme& theme_;
    QLabel* sign_;
    QLabel* words_;
    QPushButton* action_;
    QTimer timer_;  // of the whole word, or of each second of an offer
    QString text_;
    QString actionName_;
    std::function<void()> take_;
    int secondsLeft_ = 0;
};

}  // namespace commtest
