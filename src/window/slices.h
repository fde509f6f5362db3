#pragma once

#include <QTimer>
#include <functional>

namespace commtest {

// A long piece of work, done in slices of the event pump, which stays live.
class Slices : public QObject {
    Q_OBJECT

  public:
    explicit Slices(QObject* parent);

    // `step` runs again and again until it gives false; then Done is told. It replaces what is under way.
    void Begin(std::function<bool()> step);
    void Pause() { timer_.stop(); }
    void GoOn();
    void End();
    bool IsUnderWay() const { return step_ != nullptr; }

    static constexpr int kMilliseconds = 15;  // of a slice, at most

  signals:
    void Done();

  private:
    void Run();

    QTimer timer_;
    std::function<bool()> step_;
};

}  // namespace commtest
