#include "host_qt/line_caveat.h"

#include <asm/termbits.h>
#include <sys/ioctl.h>

#include <cmath>

#include "host_qt/words.h"

namespace commtest {

namespace {

// The rate that the driver makes; 0 if it does not tell.
qint32 DriverBaudRate(int descriptor) {
    termios2 line = {};
    return ioctl(descriptor, TCGETS2, &line) == 0 ? static_cast<qint32>(line.c_ospeed) : 0;
}

bool IsSameRate(qint32 wanted, qint32 made) {
    constexpr double kTolerance = 0.02;
    return std::abs(made - wanted) <= wanted * kTolerance;
}

}  // namespace

QString CaveatOf(int descriptor, const LineSettings& settings) {
    QStringList caveats;
    const qint32 made = DriverBaudRate(descriptor);
    if (made != 0 && !IsSameRate(settings.baudRate, made)) {
        caveats +=
            Words::tr("串口不支持波特率 %1，实际为 %2，请换用别的波特率").arg(settings.baudRate).arg(made);
    }
    if (settings.stopBits == QSerialPort::OneAndHalfStop && settings.dataBits != QSerialPort::Data5) {
        caveats += Words::tr("串口只在 5 个数据位时有 1.5 个停止位，实际为 2 个");
    }
    return caveats.join(Words::tr("；"));
}

QString CaveatOfReaders(const QStringList& programs) {
    if (programs.isEmpty()) return {};
    return Words::tr("程序 %1 没有锁住串口，也在读它，会取走应答，请先结束它")
        .arg(programs.join(Words::tr("、")));
}

QSerialPort::StopBits DriverStopBits(QSerialPort::StopBits wanted) {
    return wanted == QSerialPort::OneAndHalfStop ? QSerialPort::TwoStop : wanted;
}

}  // namespace commtest
