#include "window/record_highlighter.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

enum LineKind { kOther, kRequest };

// Every verdict, refusal and counter of a failure has one of them; no success has.
constexpr std::array<QStringView, 6> kFailureWords = {u"错误",   u"出错", u"无应答",
                                                      u"不完整", u"非法", u"系统忙"};

// "第 7 次, 向 仪表 发送: FRAME   收到:", in the error file behind a time stamp. Group 1 is the frame.
const QRegularExpression kRequestLine(
    u"^(?:\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d)?第 \\d+ 次, 向 .* 发送: (.*)   收到:"_s);

}  // namespace

bool TellsFailure(QStringView words) {
    return std::any_of(kFailureWords.begin(), kFailureWords.end(),
                       [words](QStringView word) { return words.contains(word); });
}

RecordHighlighter::RecordHighlighter(QTextDocument* document, const Theme& theme)
    : QSyntaxHighlighter(document), theme_(theme) {
    connect(&theme, &Theme::Changed, this, &QSyntaxHighlighter::rehighlight);
}

void RecordHighlighter::highlightBlock(const QString& line) {
    const Tokens& tokens = theme_.Now();
    const int length = static_cast<int>(line.size());
    const QRegularExpressionMatch request = kRequestLine.match(line);
    const bool isReply = previousBlockState() == kRequest;
    setCurrentBlockState(request.hasMatch() ? kRequest : kOther);
    if (request.hasMatch()) {
        setFormat(0, length, tokens.text2);
        setFormat(static_cast<int>(request.capturedStart(1)), static_cast<int>(request.capturedLength(1)),
                  tokens.text);
    } else if (TellsFailure(line)) {
        setFormat(0, length, tokens.warn);
    } else {
        setFormat(0, length, isReply ? tokens.text : tokens.text2);
    }
}

}  // namespace commtest
