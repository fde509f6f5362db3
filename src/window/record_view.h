#pragma once

#include <QPlainTextEdit>
#include <optional>

#include "session/record_pane.h"
#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// A record pane, to read and to copy from, coloured by what came of its exchanges. Blocks that have come are
// put on top of what is laid out already; the user's selection and place in the text stay.
class RecordView : public QPlainTextEdit {
    Q_OBJECT

  public:
    RecordView(Binder& binder, const Theme& theme, const RecordPane& pane, QWidget* parent);

    // Whether the block of that outcome stands here, and moves to it, with the focus. A block whose exchange
    // has stopped the session has a bar at its left.
    bool Holds(const Outcome& outcome) const;
    void GoTo(const Outcome& outcome);

    static constexpr int kBarWidth = 3;

  signals:
    // The left button went down and up here, about at one place, and nothing was or is selected; or Delete
    // was pressed.
    void Clicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void Follow();
    void ShowAll();
    void PutOnTop(std::size_t count);
    void InsertOnTop(std::size_t count);
    void PushDown(int newLines);
    void Insert(QTextCursor& cursor, const RecordBlock& block, std::size_t leftOut = 0) const;
    void DropClickIfDragged(const QMouseEvent& event);

    const Theme& theme_;
    const RecordPane& pane_;
    std::uint64_t epoch_;
    std::size_t shown_ = 0;  // blocks of that epoch
    std::optional<QPoint> press_;
};

// ConCommString(index): 0 the conversion texts, 1 the record.
RecordView* MakeCommPane(Binder& binder, const Theme& theme, int index, QWidget* parent);

}  // namespace commtest
