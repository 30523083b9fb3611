#pragma once

#include "imaging/files/atomic_file.h"
#include "imaging/png/png_encoder.h"

#include <QUrl>

#include <cstdint>
#include <exception>
#include <memory>

namespace quarlin {

/// A PNG file that is written strip by strip into a hidden draft in the same folder, which gets the file's
/// name at the end. A failure is kept until the file is committed: other files that are made in the same pass
/// go on.
class PngFile {
public:
    /// Creates the draft.
    PngFile(const PngEncoder& encoder, const QUrl& url);

    /// Whether strips are still of use: nothing has failed, and the draft was not dropped.
    bool isWanted() const { return m_draft != nullptr; }

    /// Appends the next strip.
    void append(const PngStrip& strip);

    /// Once all strips are appended: gives the draft the name of the file. Throws what failed first,
    /// `FileError`. False if the draft was dropped.
    bool commit();

    /// Removes the draft and frees its space on the disk.
    void drop() { m_draft.reset(); }

private:
    std::unique_ptr<AtomicFile> m_draft;
    std::uint32_t m_adler = 1;
    std::exception_ptr m_failure;
};

}  // namespace quarlin
