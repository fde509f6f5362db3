#pragma once

#include <QListView>
#include <QStyledItemDelegate>
#include <functional>
#include <vector>

#include "host/serial_port.h"

class QLabel;

namespace commtest {

// What the list of ports tells of one of them beside its name.
struct PortRow {
    QString device;  // "— /dev/ttyUSB0, USB Serial"; empty if there is none
    QString remark;  // in use, absent; else empty
    bool isThere = false;
};

// `port` is a name "COM1" in either case.
PortRow RowOfPort(const std::vector<PortDevice>& devices, const QString& port);

// The open list of ports: name, device, remark in each row, and below them how a device is named.
class PortListView : public QListView {
    Q_OBJECT

  public:
    explicit PortListView(QWidget* parent = nullptr);

    // What the rows show from now on; as wide as the widest of them takes.
    void Show(std::vector<PortDevice> devices);

    static constexpr int kNarrowest = 352;
    static constexpr int kRowHeight = 24;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    std::vector<PortDevice> devices_;
    QWidget* edge_;
    QLabel* hint_;
};

}  // namespace commtest
