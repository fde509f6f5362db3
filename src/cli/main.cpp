#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "cli/command_line.h"
#include "cli/problem.h"
#include "host_qt/driver_words.h"
#include "host_qt/store_thread.h"

namespace {

// Texts and file names are UTF-8; a locale that is not would make the toolkit complain.
void UseUtf8() {
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) setenv("LC_ALL", "C.UTF-8", 1);
}

// Columns of the terminal that standard error is, 0 if it is none.
int TerminalWidth() {
    constexpr int kUsualWidth = 80;
    if (isatty(STDERR_FILENO) == 0) return 0;
    winsize size = {};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : kUsualWidth;
}

int Run(int argc, char* argv[]) {
    UseUtf8();
    const QCoreApplication application(argc, argv);
    commtest::SilenceStoreDrivers();
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is a failed write
    std::signal(SIGPIPE, SIG_IGN);  // results that nobody reads any more end a verb by its own exit status
    commtest::Console console({std::cin, isatty(STDIN_FILENO) != 0}, std::cout, std::cerr, TerminalWidth());
    const int status = commtest::RunCommandLine(QCoreApplication::arguments().mid(1), console);
    if (status == static_cast<int>(commtest::ExitStatus::NoReader)) {
        std::signal(SIGPIPE, SIG_DFL);
        std::raise(SIGPIPE);
    }
    return status;
}

}  // namespace

int main(int argc, char* argv[]) { return commtest::EndedWith(Run(argc, argv)); }
