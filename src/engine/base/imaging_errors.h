#pragma once

#include <exception>

namespace quarlin {

/// What a file that can't be written is for.
enum class FileKind { image, text };

/// To be called while an exception is handled: throws the engine's error for an error of a file or of a
/// decoder, with that error nested in it, and any other exception again.
[[noreturn]] void throwEngineError(FileKind kind);

/// Returns the result of `work`, and turns errors of files and decoders into the engine's.
template <typename Work>
auto reportingEngineErrors(FileKind kind, Work&& work) -> decltype(work()) {
    try {
        return work();
    } catch (const std::exception&) {
        throwEngineError(kind);
    }
}

}  // namespace quarlin
