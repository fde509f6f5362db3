#include "host_qt/device_readers.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <array>
#include <climits>
#include <functional>
#include <memory>
#include <string>

#include "host_qt/process_name.h"

namespace commtest {

namespace {

// An open at each start of the line: the folders of the system are walked as they are.
void EachEntry(const std::string& folder, const std::function<void(const std::string& name)>& look) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (entries == nullptr) return;
    while (const dirent* const entry = readdir(entries.get())) {
        if (entry->d_name[0] >= '0' && entry->d_name[0] <= '9') look(entry->d_name);
    }
}

std::string TargetOf(const std::string& link) {
    std::array<char, PATH_MAX> target = {};
    const ssize_t size = readlink(link.c_str(), target.data(), target.size());
    return size < 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(size));
}

// Another system in a container may have a device of the same name.
bool IsSameDevice(const std::string& link, const struct stat& device) {
    struct stat open = {};
    return stat(link.c_str(), &open) == 0 && open.st_dev == device.st_dev && open.st_ino == device.st_ino;
}

// A line such as "flags:\t0100002" of what the system tells of an open file.
std::string FieldOf(const std::string& process, const std::string& file, const QByteArray& name) {
    QFile information(QString::fromStdString(process + "/fdinfo/" + file));
    if (!information.open(QIODevice::ReadOnly)) return {};
    for (const QByteArray& line : information.readAll().split('\n')) {
        if (line.startsWith(name + ':')) return line.mid(name.size() + 1).trimmed().toStdString();
    }
    return {};
}

bool IsForReading(const std::string& process, const std::string& file) {
    constexpr int kOctal = 8;
    const std::string flags = FieldOf(process, file, "flags");
    return !flags.empty() && (std::stol(flags, nullptr, kOctal) & O_ACCMODE) != O_WRONLY;
}

// What one process has open of a device.
class OpenFiles {
  public:
    OpenFiles(const std::string& process, const std::string& device, const struct stat& status) {
        const bool isPseudoTerminal = device.starts_with(kPseudoTerminals);
        EachEntry(process + "/fd", [&](const std::string& file) {
            const std::string link = process + "/fd/" + file;
            const std::string target = TargetOf(link);
            if (target == device && IsSameDevice(link, status)) reads_ |= IsForReading(process, file);
            if (!isPseudoTerminal || !target.ends_with("/ptmx")) return;
            holdsFarEnd_ |= kPseudoTerminals + FieldOf(process, file, "tty-index") == device;
        });
    }

    bool IsOfAReader() const { return reads_ && !holdsFarEnd_; }

  private:
    static inline const std::string kPseudoTerminals = "/dev/pts/";

    bool reads_ = false;
    bool holdsFarEnd_ = false;
};

}  // namespace

QStringList OtherReadersOf(const QString& device) {
    const std::string path = device.toStdString();
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) return {};
    QStringList readers;
    EachEntry("/proc", [&](const std::string& number) {
        if (number == std::to_string(getpid())) return;
        if (OpenFiles("/proc/" + number, path, status).IsOfAReader()) {
            readers += NameOfProcess(QString::fromStdString(number));
        }
    });
    return readers;
}

}  // namespace commtest
