#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "window/glyphs.h"
#include "window/theme.h"

namespace commtest {

// A box with a sign, a sentence, and facts under it, each with a name; it is as wide as its title, at least.
// It does not wait for its answer.
class FactBox : public QDialog {
    Q_OBJECT

  public:
    FactBox(const Theme& theme, QWidget* window);

    // A sentence that is too long for a line or two can be scrolled.
    void Say(Glyph sign, const QString& sentence);

    // A fact that is there already gets another value.
    void SetFact(const QString& name, const QString& value);

    void AddContents(QWidget* contents);  // below the facts

    // Left what can be done beside the answer, right the answers. One of these is the primary one, and one
    // has the keyboard.
    QPushButton* AddWayOut(const QString& caption);
    QPushButton* AddAnswer(const QString& caption, bool isPrimary);

    static constexpr int kNarrowest = 560;
    static constexpr int kSignSize = 32;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Describe();

    const Theme& theme_;
    QLabel* sign_;
    QVBoxLayout* words_;
    QWidget* sentence_ = nullptr;
    QString said_;
    QGridLayout* facts_;
    QList<std::pair<QLabel*, QLabel*>> named_;
    QHBoxLayout* buttons_;
    int waysOut_ = 0;
};

}  // namespace commtest
