#include "imaging/decode/start_imaging.h"

#include "imaging/base/strip_memory.h"
#include "imaging/files/file_size_limit.h"

#include <QImageReader>

#include <mutex>

namespace quarlin {

void startImaging() {
    static std::once_flag once;
    std::call_once(once, [] {
        keepStripMemory();
        reportFileSizeLimit();
        // Large textures exceed the limit of Qt's readers; sizes are checked before.
        QImageReader::setAllocationLimit(0);
    });
}

}  // namespace quarlin
