#pragma once

#include <QString>

#include <exception>
#include <utility>

namespace quarlin {

/// The arguments are invalid; nothing has been read or written.
class UsageError : public std::exception {
public:
    explicit UsageError(QString message) : m_message(std::move(message)) {}

    /// One sentence without a full stop, for the user.
    const QString& message() const { return m_message; }
    const char* what() const noexcept override { return "usage error"; }

private:
    QString m_message;
};

}  // namespace quarlin
