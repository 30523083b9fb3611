#pragma once

#include <QLibrary>

#include <type_traits>

namespace quarlin {

/// A library that is loaded while the program runs, because few files need it and it would make every start
/// slower. It stays loaded.
class LoadedLibrary {
public:
    /// `interface` is the version in the name of the file, that of the interface that was compiled against.
    LoadedLibrary(const QString& name, int interface)
        : m_library(name, interface), m_isComplete(m_library.load()) {}

    /// Looks up a function of the library, or of one below it.
    template <typename Function>
    void find(Function& function, const char* name) {
        static_assert(std::is_pointer_v<Function>);
        function = reinterpret_cast<Function>(m_library.resolve(name));
        m_isComplete = m_isComplete && function != nullptr;
    }

    /// Whether the library and all functions have been found so far.
    bool isComplete() const { return m_isComplete; }

private:
    QLibrary m_library;
    bool m_isComplete;
};

}  // namespace quarlin
