#pragma once

#include "view3d/scene/scene_textures.h"

#include <QQuick3DTextureData>

namespace quarlin {

/// A map of the material on the graphics card.
class MapTexture : public QQuick3DTextureData {
    Q_OBJECT

public:
    /// `format` is that of the map's pixels.
    explicit MapTexture(Format format) { setFormat(format); }

    void setMap(const SceneTexture& map) {
        setSize(map.size);
        setTextureData(map.pixels);
        update();
    }
};

}  // namespace quarlin
