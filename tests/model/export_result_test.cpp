#include "export_result.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TEST(ExportResult, KeepsItsFolderAndItsFilesInOrder) {
    const ExportResult result{QUrl::fromLocalFile(QStringLiteral("/out/Brick")),
                              {QStringLiteral("b.png"), QStringLiteral("a.png")}};
    EXPECT_EQ(result.folderURL, QUrl::fromLocalFile(QStringLiteral("/out/Brick")));
    EXPECT_EQ(result.files, QStringList({QStringLiteral("b.png"), QStringLiteral("a.png")}));
}

}  // namespace
