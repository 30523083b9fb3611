// The generated manual page and completion scripts.

#include "cli_test.h"

#include "cli/shell/cli_documents.h"

#include <gmock/gmock.h>

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

}  // namespace
