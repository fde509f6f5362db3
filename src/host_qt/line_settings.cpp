#include "host_qt/line_settings.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, QSerialPort::Parity> kParities = {
    {u"N"_s, QSerialPort::NoParity}, {u"O"_s, QSerialPort::OddParity}, {u"E"_s, QSerialPort::EvenParity}};
const QHash<QString, QSerialPort::DataBits> kDataBits = {{u"5"_s, QSerialPort::Data5},
                                                         {u"6"_s, QSerialPort::Data6},
                                                         {u"7"_s, QSerialPort::Data7},
                                                         {u"8"_s, QSerialPort::Data8}};
const QHash<QString, QSerialPort::StopBits> kStopBits = {
    {u"1"_s, QSerialPort::OneStop}, {u"1.5"_s, QSerialPort::OneAndHalfStop}, {u"2"_s, QSerialPort::TwoStop}};

}  // namespace

std::optional<LineSettings> LineSettingsOf(TextView settings) {
    const QStringList fields =
        QString::fromUtf16(settings.data(), static_cast<qsizetype>(settings.size())).split(u',');
    if (fields.size() != 4) return std::nullopt;
    const qint32 baudRate = fields[0].toInt();
    const QString parity = fields[1].toUpper();
    const bool isGood = baudRate > 0 && kParities.contains(parity) && kDataBits.contains(fields[2]) &&
                        kStopBits.contains(fields[3]);
    if (!isGood) return std::nullopt;
    return LineSettings{baudRate, kParities[parity], kDataBits[fields[2]], kStopBits[fields[3]]};
}

}  // namespace commtest
