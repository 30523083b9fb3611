#pragma once

#include <QByteArrayView>
#include <QFile>
#include <QUrl>

namespace quarlin {

/// Writes a file so that a reader finds either the whole new content or the old one: everything goes to a
/// hidden file in the same folder, which is renamed at the end. A file that is not committed leaves nothing
/// behind. Throws `FileError`.
class AtomicFile {
public:
    /// Opens the file for writing. Throws if its name belongs to something other than a writable regular
    /// file.
    explicit AtomicFile(const QUrl& url);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Appends bytes.
    void write(QByteArrayView bytes);

    /// Completes the file and gives it its name.
    void commit();

private:
    QUrl m_url;
    QString m_target;
    QFile m_file;
};

/// Removes the hidden files that killed exports have left in a folder, if they were last written to more than
/// a day ago. A newer one may belong to an export that is still running.
void removeAbandonedDrafts(const QUrl& folder);

}  // namespace quarlin
