#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace quarlin {

/// Does `work` and returns the text for the user if it throws: an engine failure's own description, or what
/// can be said of memory running out and of any other exception.
std::optional<QString> failureOf(const std::function<void()>& work);

}  // namespace quarlin
