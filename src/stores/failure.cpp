#include "stores/failure.h"

#include "engine/base/texture_processor_error.h"

#include <exception>
#include <new>

namespace quarlin {

std::optional<QString> failureOf(const std::function<void()>& work) {
    try {
        work();
        return std::nullopt;
    } catch (const EngineError& error) {
        return error.errorDescription();
    } catch (const std::bad_alloc&) {
        return outOfMemoryDescription();
    } catch (const std::exception& error) {
        return QString::fromLocal8Bit(error.what());
    }
}

}  // namespace quarlin
