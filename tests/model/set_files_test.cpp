// Compares the tables of both sets with the tests' own list of the files.

#include "set_files.h"

#include "model/normal_output_names.h"
#include "model/output_names.h"
#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Compares `expected` with the row of the table at the same position.
template <typename Row, typename File>
void expectRow(const Row& row, const File& expected) {
    SCOPED_TRACE(expected.suffix);
    EXPECT_EQ(row.suffix, QLatin1String(expected.suffix));
    EXPECT_EQ(row.title, QLatin1String(expected.title));
    EXPECT_EQ(row.isExported, expected.isExported);
    EXPECT_EQ(row.toggle, QLatin1String(expected.toggle));
    if (expected.hasSwitch()) {
        EXPECT_EQ(u"--no-"_s + row.rawValue, QLatin1String(expected.option));
        EXPECT_EQ(u"write no "_s + row.description, QLatin1String(expected.help));
    }
}

TEST(GeneratedFile, IsARowOfTheTableInWritingOrder) {
    const auto& rows = EnumerationTable<GeneratedFile>::rows;
    const auto expected = generatedFiles();
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index) {
        expectRow(rows[index], expected[index]);
        EXPECT_EQ(rows[index].map, expected[index].image);
    }
}

TEST(MaterialFile, IsARowOfTheTableInWritingOrder) {
    const auto& rows = EnumerationTable<MaterialFile>::rows;
    const auto expected = materialFiles();
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index) {
        expectRow(rows[index], expected[index]);
        EXPECT_EQ(rows[index].image, expected[index].image);
    }
}

TEST(GeneratedFile, HasTheNameOfTheMaterialBeforeItsSuffix) {
    const NormalOutputNames names{u"Brick"_s};
    QStringList all;
    for (const GeneratedFile file : allCases<GeneratedFile>()) {
        all += names[file];
    }
    EXPECT_EQ(all, namesOf(generatedFiles(), u"Brick"_s));
}

TEST(MaterialFile, HasTheNameOfTheMaterialBeforeItsSuffix) {
    const OutputNames names{u"Brick"_s};
    QStringList all;
    for (const MaterialFile file : allCases<MaterialFile>()) {
        all += names[file];
    }
    EXPECT_EQ(all, namesOf(materialFiles(), u"Brick"_s));
}

TEST(GeneratedFile, HoldsEveryMapOnce) {
    std::multiset<GeneratedMap> held;
    for (const auto& row : EnumerationTable<GeneratedFile>::rows) {
        if (row.map) {
            held.insert(*row.map);
        }
    }
    const auto maps = allCases<GeneratedMap>();
    EXPECT_EQ(held, std::multiset<GeneratedMap>(maps.begin(), maps.end()));
}

TEST(GeneratedMap, IsGrayUnlessItHoldsColorsOrVectors) {
    std::set<GeneratedMap> colored;
    for (const GeneratedMap map : allCases<GeneratedMap>()) {
        if (!isGray(map)) {
            colored.insert(map);
        }
    }
    EXPECT_EQ(colored, (std::set{GeneratedMap::source, GeneratedMap::normal, GeneratedMap::orm}));
}

}  // namespace
