#include "ui/panels/workspaces.h"
#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/layout/column_splitter.h"
#include "ui/panels/busy_pointer.h"
#include "ui/panels/store_observer.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

template <typename Store>
QWidget* makeWorkspace(Store& store) {
    if constexpr (std::is_same_v<Store, MaterialStore>) {
        return makeMaterialWorkspace(store);
    } else {
        return makeGeneratorWorkspace(store);
    }
}

template <typename Store>
class Workspace : public StoreFixture<Store> {
protected:
    ViewWindow window{makeWorkspace(this->store), QSize(1142, 640)};
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

class StoreObserverTest : public StoreFixture<MaterialStore> {};

TEST_F(StoreObserverTest, RedrawsOnceForManyChangesAndOnlyWhenTheyAreMade) {
    QObject view;
    QList<qsizetype> seen;
    new StoreObserver(
        store, [&] { seen << store.logLines().size(); }, &view);
    EXPECT_EQ(seen, QList<qsizetype>({1}));
    store.removeTexture(TextureSlotKind::normal);
    store.removeTexture(TextureSlotKind::normal);
    EXPECT_EQ(seen.size(), 1);
    runEventLoop();
    EXPECT_EQ(seen, QList<qsizetype>({1, 3}));
    store.removeTexture(TextureSlotKind::normal);
    runEventLoop();
    EXPECT_EQ(seen, QList<qsizetype>({1, 3, 4}));
}

TEST_F(StoreObserverTest, StopsWithItsView) {
    int redraws = 0;
    auto view = std::make_unique<QObject>();
    new StoreObserver(
        store, [&] { ++redraws; }, view.get());
    store.removeTexture(TextureSlotKind::normal);
    view.reset();
    runEventLoop();
    EXPECT_EQ(redraws, 1);
}

class BusyPointerTest : public StoreFixture<MaterialStore> {};

TEST_F(BusyPointerTest, ShowsWhileTheEngineRunsAndNoLonger) {
    const BusyPointer pointer(store);
    QList<Qt::CursorShape> shapes;
    QObject::connect(&store, &MaterialStore::workStarted, [&] {
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        shapes << QGuiApplication::overrideCursor()->shape();
    });
    store.importTexture(folder.texture(u"a.png"_s), TextureSlotKind::baseColor);
    store.importTexture(folder.noTexture(u"b.png"_s), TextureSlotKind::baseColor);
    EXPECT_EQ(shapes, QList<Qt::CursorShape>({Qt::WaitCursor, Qt::WaitCursor, Qt::WaitCursor}));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
