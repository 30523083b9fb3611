// The manual page and the completions that come with the program.

#include "cli_test.h"

#include "cli/shell/cli_documents.h"

#include <gmock/gmock.h>

#include <QDir>

using namespace quarlin;
using namespace quarlin::tests;

namespace {

QString word(const char* text) { return QString::fromUtf8(text); }

const QString packaging = word(PACKAGING_PATH "/");

TEST(CliDocuments, AreThoseOfTheOptions) {
    for (const auto& [name, text] : cliDocuments()) {
        EXPECT_TRUE(bytesOf(packaging + name) == text)
            << name.toStdString() << " is out of date: build the target cli_documents";
    }
}

TEST(CliDocuments, NameEveryOptionOfEveryCommand) {
    const auto documents = cliDocuments();
    int count = 0;
    for (const char* command : {"material", "maps", "check"}) {
        const Outcome help = runCli({word(command), word("--help")});
        for (const QString& line : QString::fromStdString(help.output).split(u'\n')) {
            if (!line.startsWith(word("  --")) || line.startsWith(word("  --help"))) {
                continue;
            }
            const QString option = line.mid(4).section(u' ', 0, 0);
            ++count;
            for (const auto& [name, text] : documents) {
                const bool isFish = name.endsWith(word(".fish"));
                QString typed = (isFish ? word("-l ") : word("--")) + option;
                if (name.endsWith(word(".1"))) {
                    typed.replace(u'-', word("\\-"));
                }
                EXPECT_TRUE(QString::fromUtf8(text).contains(typed))
                    << name.toStdString() << ' ' << option.toStdString();
            }
        }
    }
    EXPECT_GT(count, 40);
}

class BashCompletion : public CliTest {
protected:
    /// What bash offers for the last of `words`, sorted.
    QStringList offered(const QStringList& words) const {
        const QString script = word(
            ". \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _quarlin_cli; "
            "printf '%s\\n' \"${COMPREPLY[@]}\"");
        const Outcome outcome =
            run(word("bash"),
                QStringList{word("-c"), script, word("bash"), packaging + word("completion/bash/quarlin-cli"),
                            word("quarlin-cli")} +
                    words,
                path({}));
        EXPECT_EQ(outcome.errors, "");
        QStringList lines = QString::fromStdString(outcome.output).split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        return lines;
    }
};

TEST_F(BashCompletion, OffersTheCommands) {
    EXPECT_EQ(offered({word("ma")}), (QStringList{word("maps"), word("material")}));
    EXPECT_EQ(offered({word("--")}), (QStringList{word("--help"), word("--version")}));
}

TEST_F(BashCompletion, OffersTheOptionsOfTheCommand) {
    EXPECT_EQ(offered({word("maps"), word("--no-g")}), (QStringList{word("--no-gloss"), word("--no-gltf")}));
    EXPECT_EQ(offered({word("material"), word("--base")}), QStringList{word("--base-color")});
    EXPECT_EQ(offered({word("check"), word("--j")}), QStringList{word("--json")});
}

TEST_F(BashCompletion, OffersTheValuesOfAnOption) {
    EXPECT_EQ(offered({word("maps"), word("--size"), word("1")}), QStringList{word("1024")});
    EXPECT_EQ(offered({word("maps"), word("--strength"), {}}), QStringList());
}

TEST_F(BashCompletion, OffersFilesAndFoldersWhereTheyAreMeant) {
    writeFile(word("some file.png"), {});
    ASSERT_TRUE(QDir(path({})).mkdir(word("some folder")));
    EXPECT_EQ(offered({word("maps"), word("--source"), word("so")}),
              (QStringList{word("some file.png"), word("some folder")}));
    EXPECT_EQ(offered({word("maps"), word("--output"), word("so")}), QStringList{word("some folder")});
    EXPECT_EQ(offered({word("check"), word("so")}), QStringList{word("some folder")});
}

}  // namespace
