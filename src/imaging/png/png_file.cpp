#include "imaging/png/png_file.h"

#include "imaging/files/file_error.h"

namespace quarlin {

PngFile::PngFile(const PngEncoder& encoder, const QUrl& url) {
    try {
        m_draft = std::make_unique<AtomicFile>(url);
        m_draft->write(encoder.beginning());
    } catch (const FileError&) {
        m_failure = std::current_exception();
        drop();
    }
}

void PngFile::append(const PngStrip& strip) {
    if (!m_draft) {
        return;
    }
    try {
        m_draft->write(strip.chunk);
        m_adler = extendedAdler(m_adler, strip);
    } catch (const FileError&) {
        m_failure = std::current_exception();
        drop();
    }
}

bool PngFile::commit() {
    if (m_failure) {
        std::rethrow_exception(m_failure);
    }
    if (!m_draft) {
        return false;
    }
    const std::unique_ptr<AtomicFile> draft = std::move(m_draft);
    draft->write(PngEncoder::ending(m_adler));
    draft->commit();
    return true;
}

}  // namespace quarlin
