#include "studio_tool.h"

#include "qstring_printing.h"

#include <gmock/gmock.h>

using namespace quarlin;
using testing::ElementsAre;

namespace {

TEST(StudioTool, ListsItsCasesInTabOrder) {
    EXPECT_THAT(allCases<StudioTool>(), ElementsAre(StudioTool::pbr, StudioTool::normalGenerator));
}

TEST(StudioTool, CarriesItsLabels) {
    EXPECT_EQ(title(StudioTool::pbr), QStringLiteral("PBR Material"));
    EXPECT_EQ(systemImage(StudioTool::pbr), QStringLiteral("cube.transparent"));
    EXPECT_EQ(title(StudioTool::normalGenerator), QStringLiteral("Map Generator"));
    EXPECT_EQ(systemImage(StudioTool::normalGenerator), QStringLiteral("mountain.2"));
}

TEST(StudioTool, IsIdentifiedByItsRawValue) {
    EXPECT_EQ(id(StudioTool::pbr), QStringLiteral("pbr"));
    EXPECT_EQ(id(StudioTool::normalGenerator), QStringLiteral("normalGenerator"));
    EXPECT_EQ(fromRawValue<StudioTool>(u"pbr"), StudioTool::pbr);
    EXPECT_EQ(fromRawValue<StudioTool>(u"normalGenerator"), StudioTool::normalGenerator);
    EXPECT_EQ(fromRawValue<StudioTool>(u"Map Generator"), std::nullopt);
}

}  // namespace
