#pragma once

#include "engine/base/texture_processor_error.h"

#include <QString>

#include <exception>
#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

/// The words were right, but the work failed.
class CommandFailure : public std::exception {
public:
    /// `step` is what failed, as the sentence begins: "Load" or "Export".
    CommandFailure(const QString& step, const QString& reason) : m_message(step + u" failed: "_s + reason) {}
    CommandFailure(const QString& step, const EngineError& error)
        : CommandFailure(step, error.errorDescription()) {}

    /// One line for the user.
    const QString& message() const { return m_message; }
    const char* what() const noexcept override { return "the work failed"; }

private:
    QString m_message;
};

/// The result of `work`; an error of the engine becomes the failure of `step`.
template <typename Work>
auto failingAs(const QString& step, Work work) -> decltype(work()) {
    try {
        return work();
    } catch (const EngineError& error) {
        throw CommandFailure(step, error);
    }
}

}  // namespace quarlin
