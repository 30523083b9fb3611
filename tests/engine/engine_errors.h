#pragma once

#include "texture_processor_error.h"

#include <QString>

#include <optional>
#include <ostream>

namespace quarlin {

/// The error that `operation` throws; nothing when it throws none. Any other exception passes.
template <typename Operation>
std::optional<TextureProcessorError> errorOf(Operation&& operation) {
    try {
        static_cast<void>(operation());
    } catch (const TextureProcessorError& error) {
        return error;
    }
    return std::nullopt;
}

inline void PrintTo(const TextureProcessorError& error, std::ostream* out) {
    *out << error.errorDescription().toStdString() << " [" << error.file().toString().toStdString() << ']';
}

}  // namespace quarlin
