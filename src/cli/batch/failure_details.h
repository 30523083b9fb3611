#pragma once

#include <QString>

namespace quarlin {

class EngineError;

/// What a failure is about, beyond its text for the user.
struct FailureDetails {
    /// For scripts: one of the codes of docs/report.md.
    QString code;
    /// Absolute; empty if it is not about a file.
    QString path;
    /// For the user, such as "damaged or incomplete, from its first bytes on".
    QString reason;
};

/// The details of an engine's error, with what caused it. To be called while it is handled.
FailureDetails failureDetails(const EngineError& error);

}  // namespace quarlin
