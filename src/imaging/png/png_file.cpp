#include "imaging/png/png_file.h"

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
    m_names += name;
    return m_files.emplace_back(m_width, m_height, fileIn(m_folder, name));
}

RowStrips PngFileSet::strips() const { return PngEncoder(m_width, m_height).strips(); }

void PngFileSet::encode(const std::vector<RowSource>& images) {
    const RowStrips cut = strips();
    forEachInParallel(cut.count() * static_cast<std::int64_t>(images.size()), [&](std::int64_t index) {
        const auto image = static_cast<std::size_t>(index / cut.count());
        const std::int64_t strip = index % cut.count();
        PixelBuffer scratch;
        m_files[image].encodeStrip(strip, images[image](cut[strip], scratch));
    });
}

void PngFileSet::commit(QStringList& written) {
    for (std::size_t index = 0; index < m_files.size(); ++index) {
        if (!m_files[index].commitDraft()) {
            // It may have failed only because the drafts behind it took the room: what is written first has
            // the first claim to it.
            for (PngFile& file : m_files) {
                file.dropDraft();
            }
            m_files[index].write();
        }
        written += m_names[static_cast<qsizetype>(index)];
    }
}

}  // namespace quarlin
