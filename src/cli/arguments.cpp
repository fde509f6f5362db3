#include "cli/arguments.h"

#include <QCommandLineOption>
#include <QRegularExpression>

namespace commtest {

using namespace Qt::StringLiterals;

Arguments::Arguments(QStringView verb, const QStringList& words, const OptionList& options)
    : verb_(verb.toString()) {
    for (const Option& option : options) {
        parser_.addOption({option.name.toString(), {}, option.value.toString(), option.fallback.toString()});
    }
    // The parser takes the first word for the name of the program.
    if (parser_.parse(QStringList(verb_) + words)) return;
    if (!parser_.unknownOptionNames().isEmpty()) {
        throw BadUsage(u"没有选项 \"%1\""_s.arg(parser_.unknownOptionNames().constFirst()));
    }
    const QString name = QRegularExpression(u"'(.+)'"_s).match(parser_.errorText()).captured(1);
    throw BadUsage(u"选项 %1 的值缺少或多余"_s.arg(name));
}

bool Arguments::Has(QStringView option) const { return parser_.isSet(option.toString()); }

QString Arguments::Value(QStringView option) const {
    const QString value = parser_.value(option.toString());
    if (value.isEmpty()) throw BadUsage(u"缺少选项 --%1"_s.arg(option));
    return value;
}

int Arguments::WholeNumber(QStringView option, int least, int most) const {
    bool isNumber = false;
    const int number = Value(option).toInt(&isNumber);
    if (!isNumber || number < least || number > most) {
        throw BadValue(option, u" %1 到 %2 的整数"_s.arg(least).arg(most));
    }
    return number;
}

QStringList Arguments::Positional(qsizetype count, QStringView meaning) const {
    const QStringList words = parser_.positionalArguments();
    if (words.size() < count) throw BadUsage(u"缺少参数: %1"_s.arg(meaning));
    if (words.size() > count) throw BadUsage(u"多余的参数 \"%1\""_s.arg(words[count]));
    return words;
}

Problem Arguments::BadValue(QStringView option, const QString& expected) const {
    return BadUsage(
        u"选项 --%1 的值 \"%2\" 不对，应为%3"_s.arg(option, parser_.value(option.toString()), expected));
}

Problem Arguments::BadUsage(const QString& line) const {
    return {ExitStatus::BadUsage, u"%1。用法请看 commtest-cli %2 --help"_s.arg(line, verb_)};
}

}  // namespace commtest
