#pragma once

#include <QByteArrayView>
#include <QFile>
#include <QUrl>

namespace quarlin {

/// Writes a file so that a reader finds either the whole new content or the old one: everything goes to a
/// hidden file in the same folder, which takes the name at the end. A file that is not committed leaves
/// nothing behind.
class AtomicFile {
public:
    explicit AtomicFile(const QUrl& url);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Whether the file could be opened for writing. It can't where its name belongs to something that is no
    /// writable regular file.
    bool isOpen() const { return m_file.isOpen(); }

    /// Adds bytes; false when they can't be written.
    bool write(QByteArrayView bytes);

    /// Gives the file its name; false when it can't be completed.
    bool commit();

private:
    QString m_target;
    QFile m_file;
};

/// Removes what exports that were killed have left in a folder: the hidden files of `AtomicFile` that nobody
/// has written to for a day. A younger one may belong to another export that runs.
void removeAbandonedDrafts(const QUrl& folder);

}  // namespace quarlin
