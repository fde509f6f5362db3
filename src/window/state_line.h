#pragma once

#include <QLabel>
#include <QPushButton>
#include <functional>
#include <optional>
#include <vector>

#include "window/binder.h"
#include "window/count_label.h"
#include "window/glyphs.h"
#include "window/theme.h"

namespace commtest {

// What the state line says.
struct StateMessage {
    enum class Look {
        Quiet,    // plain words
        Tinted,   // on tint: something waits for the user
        Failure,  // a bar, and the head in the colour of failures
    };

    Look look = Look::Quiet;
    std::optional<Glyph> glyph = {};
    QString head = {};  // "已停止", in front of the text
    QString text = {};
    QString action = {};  // what can be done about it; empty: nothing
    std::function<void()> act = {};
    QString count = {};  // in place of an action: how far it is, "第 12 / 46 条"

    bool SaysTheSameAs(const StateMessage& other) const {
        return look == other.look && glyph == other.glyph && head == other.head && text == other.text &&
               action == other.action;
    }
};

// The second row of the strip, always there: left the one thing that is to be known of the communication,
// right what can be done about it. Of several sources the first one that has something to say is heard.
class StateLine : public QWidget {
    Q_OBJECT

  public:
    StateLine(Binder& binder, const Theme& theme, QWidget* parent);

    using Source = std::function<std::optional<StateMessage>()>;

    // Sources of a smaller rank are heard first; one of the same rank in their order.
    enum class Rank { PortIsBack, Failure, Editing, Replay, Stopped, Operation };
    void AddSource(Rank rank, Source source);

    const StateMessage& Shown() const { return shown_; }

    // What is counted on the right while a capture is on; empty: none is.
    void ShowCounts(std::function<QString()> counts);

    // Whether it says more than what the operation is.
    bool SaysMoreThanTheOperation() const { return saysMore_ || isCapturing_; }

    static constexpr int kHeight = 24;

  signals:
    void Changed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Listen();
    void FollowMessage();
    void FollowCounts();
    void Show(StateMessage message);
    void ShowWords();

    struct RankedSource {
        Rank rank;
        Source source;
    };

    const Theme& theme_;
    std::vector<RankedSource> sources_;
    std::function<QString()> counts_ = [] { return QString(); };
    StateMessage shown_;
    bool saysMore_ = false;
    bool isCapturing_ = false;
    QLabel* sign_;
    QLabel* head_;
    QLabel* text_;
    CountLabel* count_;
    QLabel* dot_;  // in front of what a capture counts
    CountLabel* captureCounts_;
    QPushButton* action_;
};

}  // namespace commtest
