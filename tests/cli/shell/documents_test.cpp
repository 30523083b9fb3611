// The generated manual page and completion scripts.

#include "cli_test.h"

#include "cli/shell/cli_documents.h"

#include <gmock/gmock.h>

#include <QDir>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

const QString packaging = QString::fromUtf8(PACKAGING_PATH "/");

TEST(CliDocuments, MatchTheOptions) {
    for (const auto& [name, text] : cliDocuments()) {
        EXPECT_TRUE(bytesOf(packaging + name) == text)
            << name.toStdString() << " is out of date: build the target cli_documents";
    }
}

TEST(CliDocuments, NameEveryOptionOfEveryCommand) {
    const auto documents = cliDocuments();
    int count = 0;
    for (const char* command : {"material", "maps", "check"}) {
        const Outcome help = runCli({QString::fromUtf8(command), u"--help"_s});
        for (const QString& line : QString::fromStdString(help.output).split(u'\n')) {
            if (!line.startsWith(u"  --"_s) || line.startsWith(u"  --help"_s)) {
                continue;
            }
            const QString option = line.mid(4).section(u' ', 0, 0);
            ++count;
            for (const auto& [name, text] : documents) {
                const bool isFish = name.endsWith(u".fish"_s);
                QString typed = (isFish ? u"-l "_s : u"--"_s) + option;
                if (name.endsWith(u".1"_s)) {
                    typed.replace(u'-', u"\\-"_s);
                }
                EXPECT_TRUE(QString::fromUtf8(text).contains(typed))
                    << name.toStdString() << ' ' << option.toStdString();
            }
        }
    }
    EXPECT_GT(count, 40);
}

TEST(CliDocuments, ListTheInputFormats) {
    const std::string page = bytesOf(packaging + u"man/quarlin-cli.1"_s).toStdString();
    EXPECT_THAT(page, testing::HasSubstr("PNG, JPEG, TIFF, BMP, GIF, HEIC, WebP, AVIF or Targa files."));
}

class BashCompletion : public CliTest {
protected:
    /// What bash offers to complete the last of `arguments`, sorted.
    QStringList offered(const QStringList& arguments) const {
        const QString script =
            u". \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _quarlin_cli; "
            "printf '%s\\n' \"${COMPREPLY[@]}\""_s;
        const Outcome outcome =
            run(u"bash"_s,
                QStringList{u"-c"_s, script, u"bash"_s, packaging + u"completion/bash/quarlin-cli"_s,
                            u"quarlin-cli"_s} +
                    arguments,
                path({}));
        EXPECT_EQ(outcome.errors, "");
        QStringList lines = QString::fromStdString(outcome.output).split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        return lines;
    }
};

TEST_F(BashCompletion, OffersTheCommands) {
    EXPECT_EQ(offered({u"ma"_s}), (QStringList{u"maps"_s, u"material"_s}));
    EXPECT_EQ(offered({u"--"_s}), (QStringList{u"--help"_s, u"--version"_s}));
}

TEST_F(BashCompletion, OffersTheOptionsOfTheCommand) {
    EXPECT_EQ(offered({u"maps"_s, u"--no-g"_s}), (QStringList{u"--no-gloss"_s, u"--no-gltf"_s}));
    EXPECT_EQ(offered({u"material"_s, u"--base"_s}), QStringList{u"--base-color"_s});
    EXPECT_EQ(offered({u"check"_s, u"--j"_s}), QStringList{u"--json"_s});
}

TEST_F(BashCompletion, OffersTheValuesOfAnOption) {
    EXPECT_EQ(offered({u"maps"_s, u"--size"_s, u"1"_s}), QStringList{u"1024"_s});
    EXPECT_EQ(offered({u"maps"_s, u"--strength"_s, {}}), QStringList());
}

TEST_F(BashCompletion, OffersTheValuesAfterAnEqualsSign) {
    // bash splits the word at the sign.
    EXPECT_EQ(offered({u"maps"_s, u"--size"_s, u"="_s, u"1"_s}), QStringList{u"1024"_s});
    EXPECT_EQ(offered({u"maps"_s, u"--size"_s, u"="_s}),
              (QStringList{u"1024"_s, u"2048"_s, u"4096"_s, u"512"_s, u"base"_s}));
    // It does not if the user has removed the sign from COMP_WORDBREAKS.
    EXPECT_EQ(offered({u"maps"_s, u"--size=1"_s}), QStringList{u"--size=1024"_s});
    EXPECT_EQ(offered({u"maps"_s, u"--strength"_s, u"="_s}), QStringList());
    EXPECT_EQ(offered({u"check"_s, u"--json"_s, u"="_s}), QStringList());
}

TEST_F(BashCompletion, OffersEveryValueOfAList) {
    EXPECT_EQ(offered({u"maps"_s, u"--prefer"_s, u"loss"_s}), (QStringList{u"lossless"_s, u"lossy"_s}));
    EXPECT_EQ(offered({u"maps"_s, u"--prefer"_s, u"="_s, u"gl,lossl"_s}), QStringList{u"gl,lossless"_s});
    EXPECT_EQ(offered({u"maps"_s, u"--prefer=gl,dx,lossl"_s}), QStringList{u"--prefer=gl,dx,lossless"_s});
}

TEST_F(BashCompletion, OffersFilesAndFoldersForPaths) {
    writeFile(u"some file.png"_s, {});
    ASSERT_TRUE(QDir(path({})).mkdir(u"some folder"_s));
    EXPECT_EQ(offered({u"maps"_s, u"--source"_s, u"so"_s}),
              (QStringList{u"some file.png"_s, u"some folder"_s}));
    EXPECT_EQ(offered({u"maps"_s, u"--output"_s, u"so"_s}), QStringList{u"some folder"_s});
    EXPECT_EQ(offered({u"maps"_s, u"--output"_s, u"="_s, u"so"_s}), QStringList{u"some folder"_s});
    EXPECT_EQ(offered({u"check"_s, u"so"_s}), (QStringList{u"some file.png"_s, u"some folder"_s}));
}

TEST(ZshCompletion, TakesValuesAfterAnEqualsSign) {
    const QByteArray text = bytesOf(packaging + u"completion/zsh/_quarlin-cli"_s);
    EXPECT_TRUE(text.contains("'--size=["));
    EXPECT_TRUE(text.contains("]:SIZE:(base 512 1024 2048 4096)'"));
    EXPECT_TRUE(text.contains("]:WORD,...:_sequence compadd - larger smaller "));
    EXPECT_TRUE(text.contains("'--json["));
}

}  // namespace
