#include "model/studio_tool.h"

#include "qstring_printing.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using testing::ElementsAre;

namespace {

TEST(StudioTool, ListsItsCasesInTabOrder) {
    EXPECT_THAT(allCases<StudioTool>(), ElementsAre(StudioTool::pbr, StudioTool::normalGenerator));
}

TEST(StudioTool, CarriesItsLabels) {
    EXPECT_EQ(title(StudioTool::pbr), u"PBR Material"_s);
    EXPECT_EQ(systemImage(StudioTool::pbr), u"cube.transparent"_s);
    EXPECT_EQ(title(StudioTool::normalGenerator), u"Map Generator"_s);
    EXPECT_EQ(systemImage(StudioTool::normalGenerator), u"mountain.2"_s);
}

TEST(StudioTool, IsIdentifiedByItsRawValue) {
    EXPECT_EQ(id(StudioTool::pbr), u"pbr"_s);
    EXPECT_EQ(id(StudioTool::normalGenerator), u"normalGenerator"_s);
    EXPECT_EQ(fromRawValue<StudioTool>(u"pbr"), StudioTool::pbr);
    EXPECT_EQ(fromRawValue<StudioTool>(u"normalGenerator"), StudioTool::normalGenerator);
    EXPECT_EQ(fromRawValue<StudioTool>(u"Map Generator"), std::nullopt);
}

}  // namespace
