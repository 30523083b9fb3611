#pragma once

#include "imaging/base/row_strips.h"
#include "imaging/files/atomic_file.h"
#include "imaging/pixels/image_view.h"
#include "imaging/png/png_encoder.h"

#include <QStringList>
#include <QUrl>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quarlin {

/// Returns rows as premultiplied RGBA, `width * 4` bytes each: in place where they exist already, else made
/// in `scratch`. Several threads call it at the same time.
using RowSource = std::function<const std::uint8_t*(RowRange rows, PixelBuffer& scratch)>;

/// The rows of an image that exists already. `image` must outlive the source.
RowSource rowsOf(const ImageView& image);

/// A PNG file that is being made. Its strips may be encoded on any thread and in any order. Each one is
/// appended to a draft of the file, hidden in the same folder, as soon as those before it are there, so that
/// little is left to write at the end.
class PngFile {
public:
    PngFile(std::int64_t width, std::int64_t height, const QUrl& url);

    const RowStrips& strips() const { return m_png.strips(); }

    /// As those of `PngEncoder`.
    void encodeStrip(std::int64_t strip, const std::uint8_t* rows);
    void encodeGrayStrip(std::int64_t strip, const std::uint8_t* gray);

    /// Once every strip is encoded: renames the draft to the file. False when the draft is incomplete or
    /// cannot be renamed; then it is removed.
    bool commitDraft();
    /// Removes the draft and frees its space on the disk.
    void dropDraft() { m_draft.reset(); }

    /// Once every strip is encoded: writes the file without its draft, whole or not at all. Throws
    /// `FileError`.
    void write() const;

private:
    void extendDraft(std::int64_t strip);

    PngEncoder m_png;
    QUrl m_url;
    std::mutex m_mutex;
    std::unique_ptr<AtomicFile> m_draft;
    /// Which strips are encoded, and how many of them the draft holds.
    std::vector<bool> m_isEncoded;
    std::int64_t m_drafted = 0;
};

/// The PNG files of one export, all of the same size, encoded in parallel and renamed one after the other.
class PngFileSet {
public:
    PngFileSet(QUrl folder, std::int64_t width, std::int64_t height);

    /// Adds a file after the others.
    PngFile& add(const QString& name);

    /// The strips of each image.
    RowStrips strips() const;

    /// Encodes the images with these rows, one for each file in order, on all cores.
    void encode(const std::vector<RowSource>& images);

    /// Once every image is encoded: puts the files in place in order, and adds each name to `written`. Throws
    /// what the first failing `PngFile::write` throws; the files after it are not written.
    void commit(QStringList& written);

private:
    struct NamedFile {
        NamedFile(const QString& fileName, std::int64_t width, std::int64_t height, const QUrl& url)
            : name(fileName), png(width, height, url) {}

        QString name;
        PngFile png;
    };

    QUrl m_folder;
    std::int64_t m_width;
    std::int64_t m_height;
    std::deque<NamedFile> m_files;
};

}  // namespace quarlin
