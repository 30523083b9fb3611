#include "imaging/decode/decode_error.h"
#include "imaging/files/file_error.h"
#include "imaging/pixels/image_rows.h"
#include "imaging/png/png_file_set.h"
#include "limited_writing.h"
#include "picture.h"
#include "png_files.h"
#include "rename_hook.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Expects `work` to throw the error of one action on one file.
void expectFailure(const std::function<void()>& work, FileError::Action action, const QUrl& file) {
    try {
        work();
        ADD_FAILURE() << "nothing failed";
    } catch (const FileError& error) {
        EXPECT_EQ(error.action(), action);
        EXPECT_EQ(error.file(), file);
    }
}

/// The rows of a picture, which turn out to be damaged at one of them.
class DamagedRows final : public RowReader {
public:
    DamagedRows(const Picture& picture, std::int64_t damagedRow)
        : RowReader(picture.width, picture.height),
          m_rows(ImageView(picture.width, picture.height, picture.bytes.data())),
          m_damagedRow(damagedRow) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        if (position() + count > m_damagedRow) {
            throw DecodeError(DecodeProblem::damaged);
        }
        m_rows.read(count, rows);
    }

    ImageRows m_rows;
    std::int64_t m_damagedRow;
};

/// Three pictures of noise, each of several strips.
class PngFiles : public testing::Test {
protected:
    static constexpr int side = 700;

    PngPass passOf(std::size_t picture) const {
        return plainPass(names[static_cast<qsizetype>(picture)], [this, picture] {
            ++timesOpened;
            return std::make_unique<ImageRows>(ImageView(side, side, pictures[picture].bytes.data()));
        });
    }
    PngFileSet files() const { return {folder.url(), {side, side}, {passOf(0), passOf(1), passOf(2)}}; }
    /// A set whose files are made in one pass; the others are the first one with other strips.
    PngFileSet filesOfOnePass() const {
        PngPass pass = passOf(0);
        pass.names = names;
        pass.encode = [](const PngEncoder& encoder, std::int64_t strip, const RowWindow& input,
                         const std::vector<bool>& wanted) {
            std::vector<PngStrip> strips(wanted.size());
            for (std::size_t image = 0; image < wanted.size(); ++image) {
                if (wanted[image]) {
                    strips[image] = encoder.encodeStrip(strip, input.row(encoder.strips()[strip].first));
                }
            }
            return strips;
        };
        return {folder.url(), {side, side}, {pass}};
    }
    std::vector<std::uint8_t> written(qsizetype name) const { return readPng(folder.url(names[name])).bytes; }

    const TemporaryFolder folder;
    const std::vector<Picture> pictures{noisePicture(side, side, 1), noisePicture(side, side, 2),
                                        noisePicture(side, side, 3)};
    const QStringList names{u"a.png"_s, u"b.png"_s, u"c.png"_s};
    mutable std::atomic<int> timesOpened = 0;
};

TEST_F(PngFiles, ASetAppearsInOrderUnderItsNames) {
    PngFileSet set = files();
    set.encode();
    for (const QString& entry : folder.names()) {
        EXPECT_FALSE(names.contains(entry));
    }
    QStringList done;
    set.commit(done);
    EXPECT_EQ(done, names);
    EXPECT_EQ(folder.names(), names);
    for (qsizetype index = 0; index < names.size(); ++index) {
        EXPECT_EQ(written(index), pictures[static_cast<std::size_t>(index)].bytes);
    }
    EXPECT_EQ(timesOpened, 3);
}

TEST_F(PngFiles, FilesOfOnePassReadTheInputOnce) {
    PngFileSet set = filesOfOnePass();
    set.encode();
    QStringList done;
    set.commit(done);
    EXPECT_EQ(done, names);
    for (qsizetype index = 0; index < names.size(); ++index) {
        EXPECT_EQ(written(index), pictures[0].bytes);
    }
    EXPECT_EQ(timesOpened, 1);
}

TEST_F(PngFiles, AMarginIsReadOnceAndGivenToBothStrips) {
    for (const std::int64_t margin : {1, 5, 300, 1000}) {
        PngPass pass = passOf(0);
        pass.margin = margin;
        std::atomic<std::int64_t> wrong = 0;
        const auto encode = pass.encode;
        pass.encode = [&, encode](const PngEncoder& encoder, std::int64_t strip, const RowWindow& input,
                                  const std::vector<bool>& wanted) {
            const RowRange expected = withMargin(encoder.strips()[strip], margin, side);
            wrong += input.rows().first != expected.first || input.rows().count != expected.count ? 1 : 0;
            for (std::int64_t y = expected.first; y < expected.end(); ++y) {
                const std::uint8_t* row = pictures[0].bytes.data() + y * side * 4;
                wrong += std::equal(row, row + side * 4, input.row(y)) ? 0 : 1;
            }
            return encode(encoder, strip, input, wanted);
        };
        PngFileSet set(folder.url(), {side, side}, {pass});
        set.encode();
        QStringList done;
        set.commit(done);
        EXPECT_EQ(wrong, 0) << margin;
        EXPECT_EQ(written(0), pictures[0].bytes);
    }
}

TEST_F(PngFiles, AFailedDraftIsWrittenAgainWhenThereIsSpace) {
    for (const bool inOnePass : {false, true}) {
        PngFileSet set = inOnePass ? filesOfOnePass() : files();
        {
            const FullDisk full(100'000);
            set.encode();
        }
        EXPECT_EQ(folder.names().filter(u".quarlin-"_s), QStringList());
        QStringList done;
        set.commit(done);
        EXPECT_EQ(done, names);
        EXPECT_EQ(folder.names(), names);
        EXPECT_EQ(written(2), pictures[inOnePass ? 0 : 2].bytes);
    }
}

TEST_F(PngFiles, AFileThatFailsAtItsEndGetsTheSpaceOfLaterDrafts) {
    PngFileSet set = files();
    set.encode();
    QStringList done;
    const FullDisk full(1000);
    expectFailure([&] { set.commit(done); }, FileError::Action::write, folder.url(names[0]));
    // The set still exists, but its drafts do not.
    EXPECT_EQ(folder.names(), QStringList());
}

TEST_F(PngFiles, AfterAFileThatCannotBeCreatedNothingIsWrittenOrLeft) {
    folder.makeFolder(names[1]);
    {
        PngFileSet set = files();
        set.encode();
        QStringList done;
        expectFailure([&] { set.commit(done); }, FileError::Action::create, folder.url(names[1]));
        EXPECT_EQ(done, names.first(1));
    }
    EXPECT_EQ(folder.names(), names.first(2));
    // The input of a file that can't be created again is not read again.
    EXPECT_EQ(timesOpened, 3);
}

TEST_F(PngFiles, DamagedInputStopsAtItsFile) {
    for (const std::int64_t damagedRow : {0, 300, side - 1}) {
        const TemporaryFolder empty;
        {
            PngPass damaged = passOf(1);
            damaged.open = [&] { return std::make_unique<DamagedRows>(pictures[1], damagedRow); };
            PngFileSet set(empty.url(), {side, side}, {passOf(0), damaged, passOf(2)});
            set.encode();
            EXPECT_NO_THROW(set.expectInput(0));
            EXPECT_THROW(set.expectInput(1), DecodeError);
            EXPECT_NO_THROW(set.expectInput(2));
            QStringList done;
            EXPECT_THROW(set.commit(done), DecodeError);
            EXPECT_EQ(done, names.first(1));
        }
        EXPECT_EQ(empty.names(), names.first(1));
    }
}

TEST_F(PngFiles, AnInputThatFailsWhenItIsReadAgainIsReported) {
    PngPass pass = passOf(0);
    pass.open = [this]() -> std::unique_ptr<RowReader> {
        const bool isFirst = timesOpened++ == 0;
        return std::make_unique<DamagedRows>(pictures[0], isFirst ? side : side / 2);
    };
    {
        PngFileSet set(folder.url(), {side, side}, {pass});
        {
            const FullDisk full(100'000);
            set.encode();
        }
        QStringList done;
        EXPECT_THROW(set.commit(done), DecodeError);
    }
    EXPECT_EQ(folder.names(), QStringList());
}

TEST_F(PngFiles, EveryStripHeightGivesTheWholePicture) {
    // One strip, strips that do not divide the height, and one row per strip.
    for (const auto& [width, height] :
         {std::pair{1, 1}, {700, 373}, {700, 375}, {262'144, 3}, {1, 70'000}, {70'000, 1}}) {
        const Picture picture = noisePicture(width, height, 9);
        PngFileSet set(folder.url(), {width, height}, {plainPass(names[0], [&] {
                           return std::make_unique<ImageRows>(
                               ImageView(picture.width, picture.height, picture.bytes.data()));
                       })});
        set.encode();
        QStringList done;
        set.commit(done);
        EXPECT_EQ(written(0), picture.bytes) << width << " x " << height;
    }
}

}  // namespace
