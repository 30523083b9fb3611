#include "cli/base/standard_streams.h"

#include <QByteArray>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace quarlin {

namespace {

bool write(const QString& text, std::FILE* stream) {
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

}  // namespace

void reserveStandardStreams() {
#ifdef Q_OS_UNIX
    // Opened for reading only, so that writing to a stream that was closed still fails.
    int file = -1;
    do {
        file = open("/dev/null", O_RDONLY);
    } while (file >= STDIN_FILENO && file <= STDERR_FILENO);
    if (file >= 0) {
        close(file);
    }
#endif
}

bool writeToStandardOutput(const QString& text) { return write(text, stdout); }

void writeToStandardError(const QString& text) { write(text, stderr); }

int terminalColumns() {
#ifdef Q_OS_UNIX
    if (isatty(STDERR_FILENO) == 0 || qgetenv("TERM") == "dumb") {
        return 0;
    }
    constexpr int usual = 80;
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
#else
    return 0;
#endif
}

}  // namespace quarlin
