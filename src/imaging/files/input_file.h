#pragma once

#include "imaging/files/byte_source.h"
#include "imaging/files/file_stamp.h"

#include <QFile>
#include <QUrl>

namespace quarlin {

/// A regular file that stays open while it is read, as often as needed. It keeps its content even when its
/// name is given to another file meanwhile.
class InputFile final : public ByteSource {
public:
    /// Opens the file. Throws `FileError` if it is not a regular file (but a folder, a pipe, a device), or if
    /// it can't be opened.
    static std::shared_ptr<InputFile> open(const QUrl& url);

    const QUrl& url() const { return m_url; }
    /// The state of the file when it was opened.
    const FileStamp& stamp() const { return m_stamp; }

    void read(std::int64_t offset, std::int64_t count, char* bytes) override;

    /// Throws `FileError` if the content may have changed since the file was opened.
    void expectUnchanged() const;

private:
    InputFile(QUrl url, const FileStamp& stamp);

    QUrl m_url;
    FileStamp m_stamp;
    QFile m_file;
};

}  // namespace quarlin
