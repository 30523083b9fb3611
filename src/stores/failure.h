#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace quarlin {

/// Calls `work` and returns the text for the user if it throws: the description of an `EngineError`, a text
/// of our own for a lack of memory, `what()` of any other exception. Returns nothing on success.
std::optional<QString> failureOf(const std::function<void()>& work);

}  // namespace quarlin
