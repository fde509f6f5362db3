#pragma once

#include <QStringList>
#include <QTemporaryDir>
#include <string>

#include "cli/command_line_runner.h"

namespace commtest::testing {

// A program folder of a test's own, with the shipped catalogue, and lists in it.
class ListFolder {
  public:
    ListFolder();

    QString Path(const QString& name) const;
    std::string PathText(const QString& name) const { return Path(name).toStdString(); }

    void Write(const QString& name, const std::string& bytes) const;
    std::string Read(const QString& name) const;
    QStringList NamesBeginning(const QString& beginning) const;

    // "catalogue", these words, and the folder.
    Outcome Run(const QStringList& words) const;
    // The same at a terminal.
    Outcome RunTyped(const QStringList& words, const std::string& input) const;

    // A line for each parameter: instrument, name, address, length, joined by blanks.
    std::string Rows() const;

  private:
    QStringList WholeCall(const QStringList& words) const;

    QTemporaryDir outer_;
    QString folder_;
};

// As UTF-8, of bytes of code page 936.
std::string FromCodePage936(const std::string& bytes);
std::string ToCodePage936(const std::string& utf8);

}  // namespace commtest::testing
