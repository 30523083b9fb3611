#pragma once

#include <exception>
#include <utility>
#include <variant>

namespace quarlin {

/// The result of work that may fail: its value, or the exception that it threw. Pieces of work that run in
/// parallel leave one each, so that whoever reads the results decides which failure comes first.
template <typename Value>
class Outcome {
public:
    /// A value-initialized result.
    Outcome() = default;

    /// Calls `work()` and keeps what it returns or throws.
    template <typename Work>
    static Outcome of(const Work& work) {
        Outcome outcome;
        try {
            outcome.m_result = work();
        } catch (...) {
            outcome.m_result = std::current_exception();
        }
        return outcome;
    }

    /// The value. Throws the exception if there is one.
    const Value& value() const {
        if (const auto* failure = std::get_if<std::exception_ptr>(&m_result)) {
            std::rethrow_exception(*failure);
        }
        return *std::get_if<Value>(&m_result);
    }

private:
    std::variant<Value, std::exception_ptr> m_result;
};

}  // namespace quarlin
