#include "ui/panels/observe.h"

#include "stores/material_store.h"
#include "view_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class ObserveTest : public StoreFixture<MaterialStore> {};

TEST_F(ObserveTest, RedrawsOnceForManyChangesAndOnlyWhenTheyAreMade) {
    QObject view;
    QList<qsizetype> seen;
    observe(&view, store, [&] { seen << store.logLines().size(); });
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

TEST_F(ObserveTest, StopsWithItsView) {
    int redraws = 0;
    auto view = std::make_unique<QObject>();
    observe(view.get(), store, [&] { ++redraws; });
    store.removeTexture(TextureSlotKind::normal);
    view.reset();
    runEventLoop();
    EXPECT_EQ(redraws, 1);
}

TEST_F(ObserveTest, StopsWithItsStore) {
    QObject view;
    int redraws = 0;
    observe(&view, store, [&] { ++redraws; });
    store.removeTexture(TextureSlotKind::normal);
    owned.reset();
    runEventLoop();
    EXPECT_EQ(redraws, 1);
}

}  // namespace
