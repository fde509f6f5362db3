#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "cli/problem.h"
#include "runtime/text.h"

namespace commtest {

struct Option {
    QStringView name;           // without its dashes
    QStringView value;          // names what stands behind it; empty for a flag
    QStringView meaning;        // for the help
    QStringView fallback = {};  // its value where it is not given
    bool mayRepeat = false;     // may be given several times
};

using OptionList = std::vector<Option>;

// The words behind a verb. Options have two dashes; a word with one, such as -12.5, is positional. What is
// wrong with the words is a Problem of bad usage.
class Arguments {
  public:
    Arguments(QStringView verb, const QStringList& words, const OptionList& options);

    // A Problem for an option that stands there but is none of these, which an action of the verb knows.
    void RequireKnownToAction(const QString& action, const QStringList& options) const;

    bool Has(QStringView option) const;
    bool Holds(QStringView option) const;  // a value of its own or one that was given

    // The value given, or the option's own; a Problem if there is neither.
    QString Value(QStringView option) const;
    // Of an option that may be given several times: all of them in order, or the option's own.
    QStringList Values(QStringView option) const;
    int WholeNumber(QStringView option, int least, int most) const;

    // The words that are no options, which have to be so many.
    QStringList Positional(qsizetype count, QStringView meaning) const;
    // The first of them, whatever else is there.
    QString FirstPositional(QStringView meaning) const;
    // The one that may be missing.
    std::optional<QString> OnePositionalAtMost() const;

    // Problems for the caller to throw: the line gets the way to the help behind it; a wrong value is named.
    Problem BadUsage(const QString& line) const;
    Problem BadValue(QStringView option, const QString& expected) const;

  private:
    void RefuseRepeated(const OptionList& options) const;
    QStringList OptionsInFront(const QStringList& words, const OptionList& options) const;
    Problem WrongOption(const OptionList& options) const;
    Problem WrongCount(const QString& option) const;

    QString verb_;
    QCommandLineParser parser_;
};

}  // namespace commtest
