#include "imaging/png/png_file.h"

#include "imaging/base/parallel.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

#include <utility>

namespace quarlin {

RowSource rowsOf(const ImageView& image) {
    return [image](RowRange rows, PixelBuffer&) { return image.row(rows.first); };
}

PngFile::PngFile(std::int64_t width, std::int64_t height, const QUrl& url)
    : m_png(width, height), m_url(url), m_isEncoded(static_cast<std::size_t>(strips().count())) {
    try {
        m_draft = std::make_unique<AtomicFile>(url);
        m_draft->write(m_png.beginning());
    } catch (const FileError&) {
        dropDraft();
    }
}

void PngFile::encodeStrip(std::int64_t strip, const std::uint8_t* rows) {
    m_png.encodeStrip(strip, rows);
    extendDraft(strip);
}

void PngFile::encodeGrayStrip(std::int64_t strip, const std::uint8_t* gray) {
    m_png.encodeGrayStrip(strip, gray);
    extendDraft(strip);
}

void PngFile::extendDraft(std::int64_t strip) {
    const std::lock_guard lock(m_mutex);
    m_isEncoded[static_cast<std::size_t>(strip)] = true;
    try {
        while (m_draft && m_drafted < strips().count() && m_isEncoded[static_cast<std::size_t>(m_drafted)]) {
            m_draft->write(m_png.chunk(m_drafted++));
        }
    } catch (const FileError&) {
        dropDraft();
    }
}

bool PngFile::commitDraft() {
    if (!m_draft) {
        return false;
    }
    bool isCommitted = true;
    try {
        m_draft->write(m_png.ending());
        m_draft->commit();
    } catch (const FileError&) {
        isCommitted = false;
    }
    dropDraft();
    return isCommitted;
}

void PngFile::write() const {
    AtomicFile file(m_url);
    file.write(m_png.beginning());
    for (std::int64_t strip = 0; strip < strips().count(); ++strip) {
        file.write(m_png.chunk(strip));
    }
    file.write(m_png.ending());
    file.commit();
}

PngFileSet::PngFileSet(QUrl folder, std::int64_t width, std::int64_t height)
    : m_folder(std::move(folder)), m_width(width), m_height(height) {}

PngFile& PngFileSet::add(const QString& name) {
    return m_files.emplace_back(name, m_width, m_height, fileIn(m_folder, name)).png;
}

RowStrips PngFileSet::strips() const { return PngEncoder::stripsOf(m_width, m_height); }

void PngFileSet::encode(const std::vector<RowSource>& images) {
    const RowStrips all = strips();
    forEachInParallel(all.count() * static_cast<std::int64_t>(images.size()), [&](std::int64_t index) {
        const auto image = static_cast<std::size_t>(index / all.count());
        const std::int64_t strip = index % all.count();
        PixelBuffer scratch;
        m_files[image].png.encodeStrip(strip, images[image](all[strip], scratch));
    });
}

void PngFileSet::commit(QStringList& written) {
    for (auto& [name, png] : m_files) {
        if (!png.commitDraft()) {
            // The drafts of later files may have filled the disk. The file that comes first goes first, so
            // they are removed to free their space.
            for (NamedFile& file : m_files) {
                file.png.dropDraft();
            }
            png.write();
        }
        written += name;
    }
}

}  // namespace quarlin
