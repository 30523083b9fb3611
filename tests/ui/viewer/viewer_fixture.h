#pragma once

#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/viewer/map_canvas.h"
#include "ui/viewer/store_maps.h"
#include "ui/viewer/viewer_window.h"
#include "view_fixture.h"

namespace quarlin::fixtures {

/// Runs the event loop until the viewer has made its map.
inline void finish(const ViewerWindow& viewer) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return !viewer.isBusy(); }, 60000));
    settle();
}

/// The image whose colors tell the place: red is x, green is y, blue is 7.
inline QImage placeImage(int width, int height) {
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgb(x % 256, y % 256, 7));
        }
    }
    return image;
}

/// The viewer on the maps of a tool.
template <typename Store, typename Maps>
class ViewerFixture : public StoreFixture<Store> {
protected:
    Maps maps{this->store};
    ViewerWindow viewer;
    MapCanvas& canvas = viewer.canvas();

    /// Opens a map and waits until it is made.
    template <typename Image>
    void open(Image image) {
        viewer.open(maps, static_cast<int>(image));
        finish(viewer);
    }

    QString mapTitle() const { return child<TextLabel>(viewer, u"mapTitle"_s).text(); }
    QString state() const { return child<TextLabel>(viewer, u"state"_s).text(); }
    QString probe() const { return child<TextLabel>(viewer, u"probe"_s).text(); }
    QString scale() const { return child<TextLabel>(viewer, u"scale"_s).text(); }

    void pointAt(const QPoint& pixel) {
        QTest::mouseMove(canvas.viewport(), canvas.viewportPosition(pixel));
        settle();
    }
};

using MaterialViewerFixture = ViewerFixture<MaterialStore, MaterialMaps>;
using GeneratorViewerFixture = ViewerFixture<NormalGeneratorStore, GeneratorMaps>;

}  // namespace quarlin::fixtures
