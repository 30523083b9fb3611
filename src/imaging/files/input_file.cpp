#include "imaging/files/input_file.h"

#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#endif

namespace quarlin {

namespace {

/// Why there is no regular file at `url`.
FileProblem problemOf(const QUrl& url) {
    if (!url.isLocalFile()) {
        return FileProblem::notAFile;
    }
    std::error_code failure;
    const std::filesystem::file_status status = std::filesystem::status(existingPath(url), failure);
    switch (status.type()) {
        case std::filesystem::file_type::none:
            return fileProblem(failure.value());
        case std::filesystem::file_type::not_found:
            return FileProblem::notFound;
        case std::filesystem::file_type::directory:
            return FileProblem::isFolder;
        default:
            return FileProblem::notAFile;
    }
}

[[noreturn]] void refuse(FileProblem problem, const QUrl& url) {
    throw FileError(FileError::Action::read, problem, url);
}

void openForReading(QFile& file, const QUrl& url) {
    constexpr QIODevice::OpenMode mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
#ifdef Q_OS_UNIX
    // By its descriptor: a `QFile` can't have a name that is not text.
    const int descriptor = ::open(existingPath(url).c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        refuse(fileProblem(errno), url);
    }
    const bool isOpen = file.open(descriptor, mode, QFileDevice::AutoCloseHandle);
#else
    file.setFileName(url.toLocalFile());
    const bool isOpen = file.open(mode);
#endif
    if (!isOpen) {
        refuse(FileProblem::other, url);
    }
}

}  // namespace

std::shared_ptr<InputFile> InputFile::open(const QUrl& url) {
    // Before it is opened: to open a pipe would wait for a writer.
    const std::optional<FileStamp> before = fileStamp(url);
    if (!before) {
        refuse(problemOf(url), url);
    }
    return std::shared_ptr<InputFile>(new InputFile(url, *before));
}

InputFile::InputFile(QUrl url, const FileStamp& stamp)
    : ByteSource(stamp.size), m_url(std::move(url)), m_stamp(stamp) {
    openForReading(m_file, m_url);
    if (fileStamp(m_file) != m_stamp) {
        refuse(FileProblem::changed, m_url);
    }
}

void InputFile::read(std::int64_t offset, std::int64_t count, char* bytes) {
    if (!m_file.seek(offset)) {
        refuse(FileProblem::other, m_url);
    }
    for (std::int64_t done = 0; done < count;) {
        const qint64 more = m_file.read(bytes + done, count - done);
        if (more <= 0) {
            refuse(more == 0 ? FileProblem::changed : FileProblem::other, m_url);
        }
        done += more;
    }
}

void InputFile::expectUnchanged() const {
    // The time of the last change of status is left out: it also changes when the file loses its name.
    const std::optional<FileStamp> now = fileStamp(m_file);
    if (!now || now->size != m_stamp.size || now->modified != m_stamp.modified) {
        refuse(FileProblem::changed, m_url);
    }
}

}  // namespace quarlin
