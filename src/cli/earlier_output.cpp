#include "cli/earlier_output.h"

#include <QRegularExpression>
#include <array>

#include "catalogue/channel_table.h"
#include "cli/statistics.h"
#include "cli/time_stamp.h"
#include "cli/traced_port.h"
#include "replay/recording_file.h"
#include "session/texts.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLongestBlock = 1 << 20;  // bytes
constexpr qint64 kLongestListHead = 64;    // bytes
constexpr std::array kFaces = {&kChineseTexts, &kEnglishTexts};

QString Quoted(TextView text) {
    return QRegularExpression::escape(QString::fromUtf16(text.data(), std::ssize(text)));
}

// The line of the request, that of the reply, the words on it, and an empty line.
QRegularExpression FirstBlockOf(const Texts& face) {
    const QString request = Quoted(face.beforeSendCount) + u"\\d+"_s + Quoted(face.beforeInstrument) +
                            u".*"_s + Quoted(face.beforeSent) + u".*"_s + Quoted(face.beforeReceived);
    return QRegularExpression(
        u"\\A(?:%1  )?%2\\n[^\\n]*\\n(?:[^\\n]+\\n)*\\n"_s.arg(kTimeStampPattern, request));
}

bool BeginsLikeRecord(QIODevice& file) {
    const QByteArray head = file.peek(kLongestBlock);
    if (head.contains('\0')) return false;
    const QString text = QString::fromUtf8(head);
    for (const Texts* const face : kFaces) {
        if (FirstBlockOf(*face).match(text).hasMatch()) return true;
    }
    return false;
}

bool BeginsLikeRecording(QIODevice& file) {
    try {
        ReadRecordingFile(file.readLine(kLongestBlock).toStdString());
        return true;
    } catch (const RecordingFileError&) {
        return false;
    }
}

bool BeginsLikeList(QIODevice& file) {
    const QByteArray head = file.peek(kLongestListHead).toUpper();
    return head.startsWith("DEVICE ") || head.split('\n').constFirst().trimmed() == "END";
}

// Whole lines, as many for each channel.
bool HasLinesOfChannels(QIODevice& file) {
    qint64 lines = 0;
    while (!file.atEnd()) {
        if (!file.readLine().endsWith("\r\n")) return false;
        ++lines;
    }
    return lines % kChannels == 0;
}

}  // namespace

QString NameOf(OutputKind kind) {
    switch (kind) {
        case OutputKind::Record: return u"通讯记录"_s;
        case OutputKind::Statistics: return u"统计"_s;
        case OutputKind::Trace: return u"线路跟踪"_s;
        case OutputKind::Recording: return u"演示数据"_s;
        case OutputKind::ParameterList: return u"参数表"_s;
        default: return u"通道表"_s;
    }
}

bool IsEarlierOutput(OutputKind kind, QIODevice& file) {
    switch (kind) {
        case OutputKind::Record: return BeginsLikeRecord(file);
        case OutputKind::Statistics: return IsStatisticsFile(file.peek(kLongestBlock));
        case OutputKind::Trace: return file.peek(kLongestBlock).startsWith(kTraceHeading);
        case OutputKind::Recording: return BeginsLikeRecording(file);
        case OutputKind::ParameterList: return BeginsLikeList(file);
        default: return HasLinesOfChannels(file);
    }
}

}  // namespace commtest
