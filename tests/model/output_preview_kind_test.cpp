#include "model/material_set.h"

#include "qstring_printing.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

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
    EXPECT_EQ(labels, QStringList({u"baseColor"_s, u"Base"_s, u"Color + alpha"_s, u"orm"_s, u"ORM"_s,
                                   u"R AO / G Rough / B Metal"_s, u"normal"_s, u"Normal"_s,
                                   u"glTF tangent normal"_s}));
}

TEST(OutputPreviewKind, IsIdentifiedByItsRawValue) {
    for (const OutputPreviewKind kind : allCases<OutputPreviewKind>()) {
        EXPECT_EQ(id(kind), rawValue(kind));
        EXPECT_EQ(fromRawValue<OutputPreviewKind>(rawValue(kind)), kind);
    }
    EXPECT_EQ(fromRawValue<OutputPreviewKind>(u"Base"), std::nullopt);
}

}  // namespace
