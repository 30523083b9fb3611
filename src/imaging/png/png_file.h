#pragma once

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

/// Gives a run of rows as premultiplied RGBA, `width * 4` bytes each: either where they stand, or made in
/// `scratch`. It is called from several threads at once.
using RowSource = std::function<const std::uint8_t*(RowRange rows, PixelBuffer& scratch)>;

/// The rows of an image that exists already. `image` must outlive the source.
RowSource rowsOf(const ImageView& image);

/// A PNG file in the making. Its strips are encoded on any thread and in any order; a draft of the file,
/// hidden in its folder, grows by each of them as soon as those before it are there, so that little is left
/// to do when the last one comes.
class PngFile {
public:
    PngFile(std::int64_t width, std::int64_t height, const QUrl& url);

    /// How the image is cut.
    RowStrips strips() const { return m_png.strips(); }

    /// As those of `PngEncoder`.
    void encodeStrip(std::int64_t strip, const std::uint8_t* rows);
    void encodeGrayStrip(std::int64_t strip, const std::uint8_t* gray);

    /// Once every strip is encoded: gives the draft the file's name. False when it does not hold all of the
    /// file or can't be given the name; then it is given up.
    bool commitDraft();
    /// Gives up the draft and the room that it takes.
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

/// The PNG files of one export, all of one size, made side by side and put in place one after the other.
class PngFileSet {
public:
    PngFileSet(QUrl folder, std::int64_t width, std::int64_t height);

    /// Adds a file behind the others.
    PngFile& add(const QString& name);

    /// How each of the images is cut.
    RowStrips strips() const;

    /// Encodes the images of which these are the rows, one for each file in order, on all cores.
    void encode(const std::vector<RowSource>& images);

    /// Once every image is encoded: gives the files their names in order, and adds each name to `written`.
    /// Throws what the first failing `PngFile::write` throws, and then leaves the files behind it unwritten.
    void commit(QStringList& written);

private:
    QUrl m_folder;
    std::int64_t m_width;
    std::int64_t m_height;
    QStringList m_names;
    std::deque<PngFile> m_files;
};

}  // namespace quarlin
