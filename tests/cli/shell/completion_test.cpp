// The completion scripts of quarlin-cli, in the shells themselves.

#include "cli_test.h"

#include <gmock/gmock.h>

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

const QString scripts = QString::fromUtf8(PACKAGING_PATH "/completion/");

/// What a shell printed, a line each, sorted.
QStringList sortedLines(const Outcome& outcome) {
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    QStringList lines = QString::fromStdString(outcome.output).split(u'\n', Qt::SkipEmptyParts);
    lines.sort();
    return lines;
}

class BashCompletion : public CliTest {
protected:
    /// What bash offers to complete the last of `arguments`, sorted.
    QStringList offered(const QStringList& arguments) const {
        const QString script =
            u". \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _quarlin_cli; "
            "printf '%s\\n' \"${COMPREPLY[@]}\""_s;
        return sortedLines(
            run(u"bash"_s,
                QStringList{u"-c"_s, script, u"bash"_s, scripts + u"bash/quarlin-cli"_s, u"quarlin-cli"_s} +
                    arguments,
                path({})));
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

/// zsh and fish take the line as it is typed.
struct Shell {
    const char* name;
    QStringList (*offered)(const QString& line, const QString& folder);
    friend void PrintTo(const Shell& shell, std::ostream* out) { *out << shell.name; }
};

QStringList offeredByZsh(const QString& line, const QString& folder) {
    return sortedLines(
        run(u"zsh"_s, {u"-f"_s, QStringLiteral(OFFERED_BY_ZSH), scripts + u"zsh"_s, line}, folder));
}

QStringList offeredByFish(const QString& line, const QString& folder) {
    const QString script = u"source $argv[1]; complete -C $argv[2]"_s;
    QStringList lines = sortedLines(run(
        u"fish"_s, {u"--no-config"_s, u"-c"_s, script, scripts + u"fish/quarlin-cli.fish"_s, line}, folder));
    for (QString& each : lines) {
        // A tab and a description follow; a folder ends in a slash.
        each = each.section(u'\t', 0, 0);
        each.chop(each.endsWith(u'/') ? 1 : 0);
    }
    return lines;
}

class TypedCompletion : public CliTest, public testing::WithParamInterface<Shell> {
protected:
    QStringList offered(const QString& line) const { return GetParam().offered(line, path({})); }
};

TEST_P(TypedCompletion, OffersTheCommands) {
    EXPECT_EQ(offered(u"quarlin-cli ma"_s), (QStringList{u"maps"_s, u"material"_s}));
    EXPECT_EQ(offered(u"quarlin-cli --"_s), (QStringList{u"--help"_s, u"--version"_s}));
}

TEST_P(TypedCompletion, OffersTheOptionsOfTheCommand) {
    EXPECT_EQ(offered(u"quarlin-cli maps --no-g"_s), (QStringList{u"--no-gloss"_s, u"--no-gltf"_s}));
    EXPECT_EQ(offered(u"quarlin-cli material --base"_s), QStringList{u"--base-color"_s});
    EXPECT_EQ(offered(u"quarlin-cli check --j"_s), QStringList{u"--json"_s});
}

TEST_P(TypedCompletion, OffersTheValuesOfAnOption) {
    EXPECT_EQ(offered(u"quarlin-cli maps --size 1"_s), QStringList{u"1024"_s});
    EXPECT_EQ(offered(u"quarlin-cli maps --strength "_s), QStringList());
    EXPECT_THAT(offered(u"quarlin-cli maps --size="_s), testing::SizeIs(5));
    EXPECT_THAT(offered(u"quarlin-cli maps --size=1"_s),
                testing::ElementsAre(testing::AnyOf(u"1024"_s, u"--size=1024"_s)));
}

TEST_P(TypedCompletion, OffersEveryValueOfAList) {
    const auto endingIn = [](const QStringList& offered, const QStringList& words) {
        return offered.size() == words.size() &&
               std::equal(offered.begin(), offered.end(), words.begin(),
                          [](const QString& whole, const QString& word) { return whole.endsWith(word); });
    };
    for (const QString& typed : {u" loss"_s, u" gl,loss"_s, u" gl,dx,loss"_s, u"=gl,loss"_s}) {
        const QStringList found = offered(u"quarlin-cli maps --prefer"_s + typed);
        EXPECT_TRUE(endingIn(found, {u"lossless"_s, u"lossy"_s}))
            << typed.toStdString() << ": " << found.join(u' ').toStdString();
    }
}

TEST_P(TypedCompletion, OffersFilesAndFoldersForPaths) {
    writeFile(u"some_file.png"_s, {});
    ASSERT_TRUE(QDir(path({})).mkdir(u"some_folder"_s));
    EXPECT_EQ(offered(u"quarlin-cli maps --source so"_s),
              (QStringList{u"some_file.png"_s, u"some_folder"_s}));
    EXPECT_EQ(offered(u"quarlin-cli maps --output so"_s), QStringList{u"some_folder"_s});
    EXPECT_EQ(offered(u"quarlin-cli check so"_s), (QStringList{u"some_file.png"_s, u"some_folder"_s}));
}

INSTANTIATE_TEST_SUITE_P(Shell, TypedCompletion,
                         testing::Values(Shell{"Zsh", offeredByZsh}, Shell{"Fish", offeredByFish}),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
