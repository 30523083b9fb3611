#include "output_preview_kind.h"

#include "qstring_printing.h"

#include <gmock/gmock.h>

using namespace quarlin;
using testing::ElementsAre;

namespace {

TEST(OutputPreviewKind, ListsItsCasesInDisplayOrder) {
    EXPECT_THAT(allCases<OutputPreviewKind>(),
                ElementsAre(OutputPreviewKind::baseColor, OutputPreviewKind::orm, OutputPreviewKind::normal));
}

TEST(OutputPreviewKind, CarriesItsLabels) {
    QStringList labels;
    for (const OutputPreviewKind kind : allCases<OutputPreviewKind>()) {
        labels << rawValue(kind) << title(kind) << subtitle(kind);
    }
    EXPECT_EQ(labels,
              QStringList({QStringLiteral("baseColor"), QStringLiteral("Base"),
                           QStringLiteral("Color + alpha"), QStringLiteral("orm"), QStringLiteral("ORM"),
                           QStringLiteral("R AO / G Rough / B Metal"), QStringLiteral("normal"),
                           QStringLiteral("Normal"), QStringLiteral("glTF tangent normal")}));
}

TEST(OutputPreviewKind, IsIdentifiedByItsRawValue) {
    for (const OutputPreviewKind kind : allCases<OutputPreviewKind>()) {
        EXPECT_EQ(id(kind), rawValue(kind));
        EXPECT_EQ(fromRawValue<OutputPreviewKind>(rawValue(kind)), kind);
    }
    EXPECT_EQ(fromRawValue<OutputPreviewKind>(u"Base"), std::nullopt);
}

}  // namespace
