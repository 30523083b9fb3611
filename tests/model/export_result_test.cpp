#include "model/export_result.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

TEST(ExportResult, KeepsItsFolderAndItsFilesInOrder) {
    const ExportResult result{QUrl::fromLocalFile(u"/out/Brick"_s), {u"b.png"_s, u"a.png"_s}};
    EXPECT_EQ(result.folderURL, QUrl::fromLocalFile(u"/out/Brick"_s));
    EXPECT_EQ(result.files, QStringList({u"b.png"_s, u"a.png"_s}));
}

}  // namespace
