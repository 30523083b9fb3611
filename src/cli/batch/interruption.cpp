#include "cli/batch/interruption.h"

#include "cli/base/printable.h"
#include "cli/batch/batch.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <string_view>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace quarlin {

namespace {

/// The name of a set in progress, where a signal handler can read it.
struct Place {
    /// A place is `taken` while its name is being written, and `announced` once it is on the terminal.
    enum class State { free, taken, named, announced };

    std::atomic<State> state = State::free;
    // A longer name is cut: most file systems allow names of 255 bytes.
    std::array<char, 255> name{};
    std::size_t size = 0;

    /// Changes the state if it is `from`. Returns whether it was.
    bool advance(State from, State to) { return state.compare_exchange_strong(from, to); }
};

// A signal handler can only reach static variables.
std::atomic<int> interruptingSignal = 0;
std::array<Place, mostSetsAtOnce> places;
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<Place::State>::is_always_lock_free);

#ifdef Q_OS_UNIX
void print(std::string_view text) {
    // Only functions of the system may be called in a signal handler.
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text.data(), text.size());
}

void remember(int signal) {
    interruptingSignal = signal;
    const int error = errno;
    bool isFirst = true;
    for (Place& place : places) {
        // No name is written any more after the assignment above, so this one stays even if its set ends now.
        if (place.advance(Place::State::named, Place::State::announced)) {
            print(isFirst ? "\nInterrupted. Being finished: " : ", ");
            print({place.name.data(), place.size});
            isFirst = false;
        }
    }
    if (!isFirst) {
        print(". Interrupt again to end at once.\n");
    }
    errno = error;
}
#endif

/// Takes a place that is free. Returns the number of places if there is none.
std::size_t takePlace() {
    for (std::size_t index = 0; index < places.size(); ++index) {
        if (places[index].advance(Place::State::free, Place::State::taken)) {
            return index;
        }
    }
    return places.size();
}

void fill(const QString& name, Place& place) {
    const QByteArray bytes = printable(name).toUtf8();
    qsizetype size = std::min(bytes.size(), static_cast<qsizetype>(place.name.size()));
    const auto continuesCharacter = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    while (size > 0 && size < bytes.size() && continuesCharacter(bytes[size])) {
        --size;
    }
    std::copy_n(bytes.begin(), size, place.name.begin());
    place.size = static_cast<std::size_t>(size);
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

SetInProgress::SetInProgress(const QString& name) : m_place(takePlace()), m_isTooLate(isInterrupted()) {
    // After an interruption the signal handler may be reading the places.
    if (m_isTooLate || m_place == places.size()) {
        return;
    }
    Place& place = places[m_place];
    fill(name, place);
    place.state = Place::State::named;
    // An interruption meanwhile may have missed the name.
    m_isTooLate = isInterrupted() && place.advance(Place::State::named, Place::State::taken);
}

SetInProgress::~SetInProgress() {
    if (m_place < places.size()) {
        places[m_place].state = Place::State::free;
    }
}

void endIfInterrupted() {
    if (const int signal = interruptingSignal; signal != 0) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
}

}  // namespace quarlin
