#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "window/glyphs.h"
#include "window/theme.h"

namespace commtest {

// The passing word to the user, in the status bar: one at a time, cut off where there is no room, whole in
// its tooltip and for those who hear it.
class NoteBar : public QWidget {
    Q_OBJECT

  public:
    explicit NoteBar(const Theme& theme, QWidget* parent = nullptr);

    void Say(const QString& text);  // for six seconds
    // Until the next one or a click, with its sign.
    void Warn(const QString& text, Glyph sign = Glyph::Warning);

    // For ten seconds, counted down; the action can be taken once.
    void Offer(const QString& text, const QString& action, std::function<void()> take);
    bool HasOffer() const { return take_ != nullptr && secondsLeft_ > 0; }
    void TakeOffer();
    // Ends an offer that has become void; another word stays.
    void WithdrawOffer();

    // A sign, and what can be done until the question is withdrawn or another word comes. Only its own button
    // does it.
    void Ask(const QString& text, Glyph sign, const QString& action, std::function<void()> take);
    bool Asks() const { return take_ != nullptr && secondsLeft_ == 0; }
    void WithdrawQuestion();

    QString Text() const { return text_; }  // empty while nothing is said

    static constexpr int kSecondsOfAnOffer = 10;

  signals:
    void Ended();  // nothing is said any more

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Show(const QString& text);
    void ShowSign(Glyph sign, const QColor& colour);
    void ShowAsFailure(bool isFailure);
    void ShowAction(const QString& action, std::function<void()> take);
    void Take();
    void CountDown();
    void End();
    void FitWords();

    const Theme& theme_;
    QFrame* edge_;  // in front of a word
    QLabel* sign_;
    QLabel* words_;
    QPushButton* action_;
    QLabel* seconds_;  // that an offer still stands
    QTimer timer_;     // of the whole word, or of each second of an offer
    QString text_;
    std::function<void()> take_;
    int secondsLeft_ = 0;
};

}  // namespace commtest
