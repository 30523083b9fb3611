#include "view3d/maps/map_builder.h"

#include "view_fixture.h"

#include <QSemaphore>
#include <QSignalSpy>

#include <stdexcept>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Maps that can be told apart by the width of their color.
SceneMaps maps(int width) { return {QImage(width, 1, QImage::Format_RGBA8888), {}, {}}; }

class MapBuilders : public testing::Test {
protected:
    MapBuilders() {
        QObject::connect(&builder, &MapBuilder::built,
                         [this](const SceneTextures& built) { widths.append(built.baseColor.size.width()); });
    }

    /// Work that waits for its `gate`.
    SceneMapWork gated(int width) {
        return [this, width] {
            gate.acquire();
            return maps(width);
        };
    }

    void waitUntilDone() {
        while (builder.isBuilding()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    QSemaphore gate;
    QList<int> widths;
    MapBuilder builder;
};

TEST_F(MapBuilders, GiveWhatTheWorkReturns) {
    builder.build([] { return maps(7); });
    EXPECT_TRUE(builder.isBuilding());
    waitUntilDone();
    EXPECT_EQ(widths, QList<int>{7});
}

TEST_F(MapBuilders, OnlyTheNewestWorkCounts) {
    builder.build(gated(1));
    builder.build(gated(2));
    builder.build(gated(3));
    // The first is under way; the second is never started.
    gate.release(2);
    waitUntilDone();
    EXPECT_EQ(widths, QList<int>{3});
    EXPECT_EQ(gate.available(), 0);
}

TEST_F(MapBuilders, CanceledWorkGivesNothing) {
    builder.build(gated(1));
    builder.build(gated(2));
    builder.cancel();
    gate.release();
    waitUntilDone();
    EXPECT_TRUE(widths.isEmpty());
}

TEST_F(MapBuilders, WorkThatFailsGivesNothingAndTheNextGoesOn) {
    builder.build([]() -> SceneMaps { throw std::runtime_error("unreadable"); });
    waitUntilDone();
    EXPECT_TRUE(widths.isEmpty());
    builder.build([] { return maps(4); });
    waitUntilDone();
    EXPECT_EQ(widths, QList<int>{4});
}

TEST(MapBuilderEnd, WaitsForTheWorkUnderWay) {
    bool isDone = false;
    {
        MapBuilder builder;
        builder.build([&isDone] {
            isDone = true;
            return maps(1);
        });
    }
    EXPECT_TRUE(isDone);
}

}  // namespace
