#include "imaging/files/file_bytes.h"

#include "imaging/files/input_file.h"

#include <memory>

namespace quarlin {

FileBytes readFile(const QUrl& url) {
    const std::shared_ptr<InputFile> file = InputFile::open(url);
    FileBytes result{file->all(), file->stamp()};
    file->expectUnchanged();
    return result;
}

}  // namespace quarlin
