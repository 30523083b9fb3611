#pragma once

#include <csignal>
#include <cstdlib>

#include <sys/resource.h>
#include <unistd.h>

namespace quarlin {

/// As long as it lives, no file of this process grows beyond `bytes`: writing fails as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
    void (*m_signal)(int);
};

/// As long as it lives, the process has no more rights than an ordinary user, even when root runs the tests.
class OrdinaryUser {
public:
    OrdinaryUser() : m_before(geteuid()) {
        constexpr uid_t nobody = 65534;
        m_works = m_before != 0 || seteuid(nobody) == 0;
    }
    ~OrdinaryUser() {
        if (m_before == 0 && seteuid(m_before) != 0) {
            std::abort();
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    /// Whether the rights could be given up.
    bool works() const { return m_works; }

private:
    uid_t m_before;
    bool m_works = false;
};

}  // namespace quarlin
