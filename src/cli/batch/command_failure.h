#pragma once

#include "cli/batch/failure_details.h"
#include "engine/base/texture_processor_error.h"

#include <QString>

#include <exception>
#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

/// The arguments were valid, but loading or exporting failed.
class CommandFailure : public std::exception {
public:
    /// `step` is what failed, the first word of the message: "Load" or "Export".
    CommandFailure(const QString& step, const QString& reason,
                   FailureDetails details = {u"refused"_s, {}, {}})
        : m_message(step + u" failed: "_s + reason), m_details(std::move(details)) {}
    CommandFailure(const QString& step, const EngineError& error)
        : CommandFailure(step, error.errorDescription(), failureDetails(error)) {}

    /// One line for the user.
    const QString& message() const { return m_message; }
    const FailureDetails& details() const { return m_details; }
    const char* what() const noexcept override { return "the command failed"; }

private:
    QString m_message;
    FailureDetails m_details;
};

/// Returns the result of `work`. An error of the engine is rethrown as the failure of `step`.
template <typename Work>
auto failingAs(const QString& step, Work work) -> decltype(work()) {
    try {
        return work();
    } catch (const EngineError& error) {
        throw CommandFailure(step, error);
    }
}

}  // namespace quarlin
