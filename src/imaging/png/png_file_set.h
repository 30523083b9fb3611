#pragma once

#include "imaging/base/outcome.h"
#include "imaging/base/pixel_size.h"
#include "imaging/pixels/row_reader.h"
#include "imaging/pixels/row_window.h"
#include "imaging/png/png_encoder.h"
#include "imaging/png/png_file.h"

#include <QStringList>
#include <QUrl>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <variant>
#include <vector>

namespace quarlin {

/// How images of one size are made in one pass over the rows of an input.
struct PngPass {
    /// Encodes a strip of the images that are `wanted`, which are counted as in `names`; the other strips
    /// stay empty. `input` has the rows of the strip and of the margin around it. Called by several threads
    /// at the same time.
    using Encode =
        std::function<std::vector<PngStrip>(const PngEncoder& encoder, std::int64_t strip,
                                            const RowWindow& input, const std::vector<bool>& wanted)>;

    /// The files of the images, in writing order.
    QStringList names;
    /// Opens the input, which has the size of the images. It is called again if a file has to be written
    /// anew, when the names of other files have been given to their drafts.
    std::function<std::unique_ptr<RowReader>()> open;
    /// The rows above and below a strip that its pixels depend on.
    std::int64_t margin = 0;
    Encode encode;
};

/// The pass that writes the rows of a reader to one file.
PngPass plainPass(const QString& name, std::function<std::unique_ptr<RowReader>()> open);

/// The PNG files of one export, all of the same size. Each is written to a hidden draft while the inputs are
/// read, a few strips at a time; the drafts get their names at the end, one after the other.
class PngFileSet {
public:
    /// Creates the drafts. The files are written in the order of `passes`.
    PngFileSet(QUrl folder, PixelSize size, std::vector<PngPass> passes);

    /// Makes all passes, side by side. If the input of one fails, the other passes go on.
    void encode();

    /// Throws what the input of a pass has thrown, if it has failed.
    void expectInput(std::size_t pass) const { m_passes[pass].outcome.value(); }

    /// Once all passes are made: puts the files in place in order, and adds each name to `written`. Throws
    /// what the first failing file throws, `FileError`, or what the input of a pass has thrown when the first
    /// file of that pass comes. The files after it are not written; their drafts are removed with the set at
    /// the latest.
    ///
    /// If a draft is incomplete, the drafts of the later files may have filled the disk. They are removed,
    /// and then each file is made once more, one after the other.
    void commit(QStringList& written);

private:
    struct Pass {
        PngPass plan;
        std::deque<PngFile> files;
        Outcome<std::monostate> outcome;
    };

    QUrl urlOf(const QString& name) const;
    void run(const PngPass& plan, const std::vector<PngFile*>& files) const;
    void commitFile(Pass& pass, std::size_t index);
    void dropDrafts();

    QUrl m_folder;
    PngEncoder m_encoder;
    std::vector<Pass> m_passes;
};

}  // namespace quarlin
