#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "window/theme.h"

namespace commtest {

// The band under the tab row while a long piece of work goes on: what it is, how far it has come, and how to
// end it.
class WorkBand : public QWidget {
    Q_OBJECT

  public:
    explicit WorkBand(QWidget* parent);

    struct Work {
        QString name;   // "导入进度", for those who hear it
        QString title;  // "正在导入 TQ.ini"
        bool canBeCancelled = true;
    };
    void Begin(const Work& work);

    struct Field {
        QString caption;
        QString value = {};
        bool isCaptionAlone = false;  // else a field without a value is not shown
    };
    void Show(double share, const QList<Field>& fields);
    void End();

    static constexpr int kHeight = 36;
    static constexpr int kBarHeight = 4;

  signals:
    void CancelWanted();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void AddField();
    void Announce(int percent);

    QString title_;
    QLabel* titleLabel_;
    QHBoxLayout* fieldLine_;
    QList<std::pair<QLabel*, QLabel*>> fields_;
    QPushButton* cancel_;
    QProgressBar* bar_;
    int announced_ = 0;  // percent
};

// "0:31" of a piece of work that has come so far in so many milliseconds; empty while nothing can be said.
QString TimeLeft(double share, qint64 milliseconds);

}  // namespace commtest
