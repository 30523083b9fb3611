#include "imaging/png/png_file_set.h"

#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

#include <algorithm>
#include <utility>

namespace quarlin {

namespace {

/// The rows of the strips that are under way, read in order. Each strip has a buffer, with the rows of its
/// margin; the buffers are used in turn.
class StripInput {
public:
    StripInput(RowReader& reader, const RowStrips& strips, std::int64_t margin, std::int64_t stripsAhead)
        : m_reader(reader),
          m_strips(strips),
          m_margin(margin),
          m_buffers(static_cast<std::size_t>(stripsAhead)) {}

    void read(std::int64_t strip) {
        const RowRange rows = rowsOf(strip);
        PixelBuffer& buffer = bufferOf(strip);
        buffer.resize(static_cast<std::size_t>(rows.count * m_reader.bytesPerRow()));
        std::uint8_t* place = buffer.data();
        if (const std::int64_t known = m_reader.position() - rows.first; known > 0) {
            const std::int64_t begin = rows.first - rowsOf(strip - 1).first;
            place = std::copy_n(bufferOf(strip - 1).data() + begin * m_reader.bytesPerRow(),
                                known * m_reader.bytesPerRow(), place);
        }
        m_reader.read(rows.end() - m_reader.position(), place);
    }

    RowWindow window(std::int64_t strip) {
        return {m_reader.width(), m_reader.height(), rowsOf(strip), bufferOf(strip).data()};
    }

private:
    RowRange rowsOf(std::int64_t strip) const {
        return withMargin(m_strips[strip], m_margin, m_reader.height());
    }
    PixelBuffer& bufferOf(std::int64_t strip) {
        return m_buffers[static_cast<std::size_t>(strip) % m_buffers.size()];
    }

    RowReader& m_reader;
    const RowStrips& m_strips;
    std::int64_t m_margin;
    std::vector<PixelBuffer> m_buffers;
};

}  // namespace

PngPass plainPass(const QString& name, std::function<std::unique_ptr<RowReader>()> open) {
    return {.names = {name},
            .open = std::move(open),
            .encode = [](const PngEncoder& encoder, std::int64_t strip, const RowWindow& input,
                         const std::vector<bool>&) {
                return std::vector{encoder.encodeStrip(strip, input.row(encoder.strips()[strip].first))};
            }};
}

PngFileSet::PngFileSet(QUrl folder, PixelSize size, std::vector<PngPass> passes)
    : m_folder(std::move(folder)), m_encoder(size.width, size.height), m_passes(passes.size()) {
    for (std::size_t index = 0; index < passes.size(); ++index) {
        m_passes[index].plan = std::move(passes[index]);
        for (const QString& name : std::as_const(m_passes[index].plan.names)) {
            m_passes[index].files.emplace_back(m_encoder, urlOf(name));
        }
    }
}

QUrl PngFileSet::urlOf(const QString& name) const { return fileIn(m_folder, name); }

void PngFileSet::encode() {
    forEachInParallel(static_cast<std::int64_t>(m_passes.size()), [&](std::int64_t index) {
        Pass& pass = m_passes[static_cast<std::size_t>(index)];
        std::vector<PngFile*> files;
        for (PngFile& file : pass.files) {
            files.push_back(&file);
        }
        pass.outcome = Outcome<std::monostate>::of([&] {
            run(pass.plan, files);
            return std::monostate{};
        });
    });
}

void PngFileSet::run(const PngPass& plan, const std::vector<PngFile*>& files) const {
    const RowStrips& strips = m_encoder.strips();
    const std::unique_ptr<RowReader> reader = plan.open();
    std::vector<bool> wanted(files.size());
    std::transform(files.begin(), files.end(), wanted.begin(),
                   [](const PngFile* file) { return file != nullptr && file->isWanted(); });
    // Enough that neither reading nor writing waits for a strip that takes longer than others.
    const std::int64_t stripsAhead = std::min<std::int64_t>(std::int64_t{coreCount()} + 2, strips.count());
    StripInput input(*reader, strips, plan.margin, stripsAhead);
    std::vector<std::vector<PngStrip>> encoded(static_cast<std::size_t>(stripsAhead));
    const auto encodedOf = [&](std::int64_t strip) -> std::vector<PngStrip>& {
        return encoded[static_cast<std::size_t>(strip % stripsAhead)];
    };
    doInThreeSteps(
        strips.count(), stripsAhead, [&](std::int64_t strip) { input.read(strip); },
        [&](std::int64_t strip) {
            encodedOf(strip) = plan.encode(m_encoder, strip, input.window(strip), wanted);
        },
        [&](std::int64_t strip) {
            const std::vector<PngStrip> done = std::move(encodedOf(strip));
            for (std::size_t image = 0; image < files.size(); ++image) {
                if (wanted[image]) {
                    files[image]->append(done[image]);
                }
            }
        });
}

void PngFileSet::commit(QStringList& written) {
    for (Pass& pass : m_passes) {
        pass.outcome.value();
        for (std::size_t index = 0; index < pass.files.size(); ++index) {
            commitFile(pass, index);
            written += pass.plan.names[static_cast<qsizetype>(index)];
        }
    }
}

void PngFileSet::commitFile(Pass& pass, std::size_t index) {
    try {
        if (pass.files[index].commit()) {
            return;
        }
    } catch (const FileError&) {
        dropDrafts();
    }
    PngFile file(m_encoder, urlOf(pass.plan.names[static_cast<qsizetype>(index)]));
    if (file.isWanted()) {
        std::vector<PngFile*> files(pass.files.size(), nullptr);
        files[index] = &file;
        run(pass.plan, files);
    }
    file.commit();
}

void PngFileSet::dropDrafts() {
    for (Pass& pass : m_passes) {
        for (PngFile& file : pass.files) {
            file.drop();
        }
    }
}

}  // namespace quarlin
