#include "ui/window/busy_pointer.h"

#include "stores/material_store.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

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
