#pragma once

#include <QString>

#include <exception>
#include <utility>

namespace quarlin {

/// The words of the command line are off: nothing has been read or written.
class UsageError : public std::exception {
public:
    explicit UsageError(QString message) : m_message(std::move(message)) {}

    /// One sentence without a full stop, for the user.
    const QString& message() const { return m_message; }
    const char* what() const noexcept override { return "the command line is off"; }

private:
    QString m_message;
};

}  // namespace quarlin
