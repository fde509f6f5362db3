#pragma once

#include <QAbstractSpinBox>

namespace commtest {

// A text with spin buttons. The text is free; a step takes it as a whole number, anything else as the lowest,
// and keeps it between lowest and highest.
class TextSpinBox : public QAbstractSpinBox {
    Q_OBJECT

  public:
    explicit TextSpinBox(QWidget* parent = nullptr);

    QString Text() const;
    void SetText(const QString& text);

    void SetRange(int lowest, int highest);
    void SetStep(int step) { step_ = step; }

    void stepBy(int steps) override;

  signals:
    void Edited(const QString& text);  // by the user

  protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

  private:
    int lowest_ = 0;
    int highest_ = 65535;
    int step_ = 1;
};

}  // namespace commtest
