#include "host_qt/named_port.h"

#include <sys/stat.h>

#include <QFile>
#include <QRegularExpression>

namespace commtest {

using namespace Qt::StringLiterals;

std::optional<NamedPort> NamedPortOf(const QString& text) {
    static const QRegularExpression kForm(u"^COM(\\d{1,4})(?:=(.+))?$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    const auto match = kForm.match(text);
    const int number = match.captured(1).toInt();
    if (number < 1) return std::nullopt;
    return NamedPort{number, match.captured(2)};
}

bool CanBeDevice(const QString& path) {
    struct stat file = {};
    if (!path.startsWith(u'/')) return false;
    return stat(QFile::encodeName(path), &file) != 0 || S_ISCHR(file.st_mode);
}

}  // namespace commtest
