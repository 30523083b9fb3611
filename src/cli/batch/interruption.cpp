#include "cli/batch/interruption.h"

#include <QtGlobal>

#include <atomic>
#include <csignal>
#include <string_view>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace quarlin {

namespace {

// A signal handler can only reach static variables.
std::atomic<int> interruptingSignal = 0;
static_assert(std::atomic<int>::is_always_lock_free);

void remember(int signal) {
    interruptingSignal = signal;
#ifdef Q_OS_UNIX
    // Only functions of the system may be called in a signal handler.
    constexpr std::string_view text =
        "\nInterrupted: the sets in progress are being finished. Interrupt again to end at once.\n";
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text.data(), text.size());
#endif
}

}  // namespace

void deferInterruption() {
#ifdef Q_OS_UNIX
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction current {};
        if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN) {
            struct sigaction deferred {};
            deferred.sa_handler = remember;
            // Reads and writes in progress continue, and a second signal takes its default action.
            deferred.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
            sigaction(signal, &deferred, nullptr);
        }
    }
#endif
}

bool isInterrupted() { return interruptingSignal != 0; }

void endIfInterrupted() {
    if (const int signal = interruptingSignal; signal != 0) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
}

}  // namespace quarlin
