#include "cli/batch/open_for_writing.h"

#ifdef Q_OS_LINUX
#include <QFile>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>
#endif

namespace quarlin {

bool isOpenForWriting(const QString& path) {
#ifdef Q_OS_LINUX
    // The system gives a lease for reading only on a file that nobody has open for writing. A program that
    // opens it before the lease is returned would have this one sent a signal.
    std::signal(SIGIO, SIG_IGN);
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    const bool isLeased = fcntl(file, F_SETLEASE, F_RDLCK) == 0;
    const bool isWritten = !isLeased && errno == EAGAIN;
    if (isLeased) {
        fcntl(file, F_SETLEASE, F_UNLCK);
    }
    close(file);
    return isWritten;
#else
    Q_UNUSED(path)
    return false;
#endif
}

}  // namespace quarlin
