#pragma once

#include <QImage>
#include <QQuick3DTextureData>

namespace quarlin {

/// What the values of a map are.
enum class MapValues { srgb, linear };

/// A map of the material on the graphics card. Colors are decoded from sRGB before they are filtered, as glTF
/// demands; they take half-precision numbers then.
class MapTexture : public QQuick3DTextureData {
    Q_OBJECT

public:
    /// `missing` is shown as long as there is no map.
    MapTexture(MapValues values, const QColor& missing);

    void setMap(const QImage& map);

private:
    MapValues m_values;
    QColor m_missing;
};

}  // namespace quarlin
