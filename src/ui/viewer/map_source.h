#pragma once

#include "engine/base/row_progress.h"

#include <QImage>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace quarlin {

/// Makes a map. Holds all that it needs, and may be called on any thread. Returns a null image when
/// `progress` ends the work; throws the engine's errors.
using ShownMapWork = std::function<QImage(const RowProgress& progress)>;

/// A map that the viewer can show.
struct ShownMap {
    /// Which of the tool's images it is: the number of its case.
    int image = 0;
    QString title;
    QString subtitle;
    /// The preview, which is shown until the map is made.
    QImage preview;
    /// The size of the map in pixels.
    QSize size;
    /// Whether the map has normals, whose green can be flipped, and whether the export flips it.
    bool hasNormals = false;
    bool isFlipped = false;
};

/// The maps of a tool as they are in its last previews.
class MapSource : public QObject {
    Q_OBJECT

public:
    /// The maps, in the order of the preview tiles; none without previews.
    virtual std::vector<ShownMap> maps() const = 0;

    /// Makes the image at the size of the export. `isFlipped`: with its green flipped, if it has normals.
    virtual ShownMapWork workFor(int image, bool isFlipped) const = 0;

    /// The name of the material that the maps belong to.
    virtual QString materialName() const = 0;

Q_SIGNALS:
    /// There are new previews.
    void changed();

protected:
    using QObject::QObject;
};

}  // namespace quarlin
