#include "imaging/files/file_size_limit.h"

#include <QtGlobal>

#include <csignal>

namespace quarlin {

void reportFileSizeLimit() {
#ifdef Q_OS_UNIX
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

}  // namespace quarlin
