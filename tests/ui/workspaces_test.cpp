#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/generator/generator_workspace.h"
#include "ui/layout/column_splitter.h"
#include "ui/material/material_workspace.h"
#include "ui/panels/tool_actions.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

template <typename Store>
QWidget* makeWorkspace(Store& store, ToolActions& actions) {
    if constexpr (std::is_same_v<Store, MaterialStore>) {
        return makeMaterialWorkspace(store, actions);
    } else {
        return makeGeneratorWorkspace(store, actions);
    }
}

template <typename Store>
class Workspace : public StoreFixture<Store> {
protected:
    ToolActions actions{this->store};
    ViewWindow window{makeWorkspace(this->store, actions), QSize(1142, 640)};
    ColumnSplitter& splitter = static_cast<ColumnSplitter&>(window.view());
};

using Stores = testing::Types<MaterialStore, NormalGeneratorStore>;
TYPED_TEST_SUITE(Workspace, Stores);

TYPED_TEST(Workspace, GivesItsColumnsTheirIdealWidths) {
    EXPECT_EQ(this->splitter.sizes(), QList<int>({320, 440, 380}));
}

TYPED_TEST(Workspace, NeverMakesAColumnNarrowerThanItsMinimum) {
    this->splitter.resize(290 + 360 + 320 + 2, 640);
    settle();
    EXPECT_EQ(this->splitter.sizes(), QList<int>({290, 360, 320}));
    EXPECT_EQ(this->splitter.minimumSizeHint().width(), 290 + 360 + 320 + 2);
}

TYPED_TEST(Workspace, NeverMakesTheFirstColumnWiderThanItsMaximum) {
    this->splitter.resize(1920, 640);
    settle();
    EXPECT_EQ(this->splitter.sizes()[0], 320);
    QWidget* handle = this->splitter.handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(2, 100));
    QTest::mouseMove(handle, QPoint(600, 100));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(600, 100));
    settle();
    EXPECT_EQ(this->splitter.sizes()[0], 380);
}

TYPED_TEST(Workspace, GivesMostOfTheRoomToThePreviews) {
    this->splitter.resize(1142 + 400, 640);
    settle();
    EXPECT_EQ(this->splitter.sizes(), QList<int>({320, 540, 680}));
    this->splitter.resize(1142, 640);
    settle();
    EXPECT_EQ(this->splitter.sizes(), QList<int>({320, 440, 380}));
}

TYPED_TEST(Workspace, LetsTheColumnsBeDragged) {
    QWidget* handle = this->splitter.handle(1);
    const int before = this->splitter.sizes()[0];
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(2, 100));
    QTest::mouseMove(handle, QPoint(-18, 100));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(2, 100));
    settle();
    EXPECT_LT(this->splitter.sizes()[0], before);
    EXPECT_GE(this->splitter.sizes()[0], 290);
}

}  // namespace
