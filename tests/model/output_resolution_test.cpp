#include "model/output_resolution.h"

#include "qstring_printing.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using testing::ElementsAre;

namespace {

TEST(OutputResolution, ListsItsCasesInDisplayOrder) {
    EXPECT_THAT(allCases<OutputResolution>(),
                ElementsAre(OutputResolution::matchBase, OutputResolution::px512, OutputResolution::px1024,
                            OutputResolution::px2048, OutputResolution::px4096));
}

TEST(OutputResolution, CarriesItsTitles) {
    QStringList titles;
    for (const OutputResolution resolution : allCases<OutputResolution>()) {
        titles << title(resolution);
    }
    EXPECT_EQ(titles, u"Base Size,512,1024,2048,4096"_s.split(u','));
}

TEST(OutputResolution, IsIdentifiedByItsRawValue) {
    QStringList rawValues;
    for (const OutputResolution resolution : allCases<OutputResolution>()) {
        rawValues << rawValue(resolution);
        EXPECT_EQ(id(resolution), rawValue(resolution));
        EXPECT_EQ(fromRawValue<OutputResolution>(rawValue(resolution)), resolution);
    }
    EXPECT_EQ(rawValues, u"matchBase,px512,px1024,px2048,px4096"_s.split(u','));
    EXPECT_EQ(fromRawValue<OutputResolution>(u"512"), std::nullopt);
    EXPECT_EQ(fromRawValue<OutputResolution>(u"Base Size"), std::nullopt);
}

TEST(OutputResolution, BaseSizeFixesNoPixels) {
    EXPECT_EQ(fixedPixels(OutputResolution::matchBase), std::nullopt);
}

TEST(OutputResolution, TheOthersFixTheSquaresEdge) {
    EXPECT_EQ(fixedPixels(OutputResolution::px512), 512);
    EXPECT_EQ(fixedPixels(OutputResolution::px1024), 1024);
    EXPECT_EQ(fixedPixels(OutputResolution::px2048), 2048);
    EXPECT_EQ(fixedPixels(OutputResolution::px4096), 4096);
}

}  // namespace
