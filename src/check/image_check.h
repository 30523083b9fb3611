#pragma once

#include "check/checked_material.h"
#include "check/finding.h"

#include <QImage>
#include <QSize>
#include <QUrl>

#include <map>

namespace quarlin {

/// What an image is used for in a material.
enum class ImageUse { baseColor, orm, normal };

/// The images of a set. Each is read and checked only once, even if it has several uses.
class CheckedImages {
public:
    explicit CheckedImages(QUrl folder) : m_folder(std::move(folder)) {}

    /// The pixels of the file `name` in the folder, used as `use`; a null image if it is missing or can't be
    /// decoded. The first request for a file adds what is wrong with it to `findings`.
    QImage read(const QString& name, ImageUse use, Findings& findings);

private:
    QUrl m_folder;
    std::map<QString, QImage> m_images;
};

/// Adds a finding if a base color is transparent in places, which an opaque material ignores.
void checkAlpha(const QImage& image, const QString& name, Findings& findings);

/// Adds findings if a normal map looks inverted, or if its normals do not have length 1 or point inward.
/// `isGenerated` says whether Quarlin generated the map from a single texture.
void checkNormals(const QImage& image, const QString& name, bool isGenerated, Findings& findings);

}  // namespace quarlin
