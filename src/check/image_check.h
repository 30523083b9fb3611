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

/// The images of a set, each read once whatever it is used for, and what is wrong with them.
class CheckedImages {
public:
    explicit CheckedImages(QUrl folder) : m_folder(std::move(folder)) {}

    /// The pixels of the file `name` in the folder, used as `use`; a null image where it is missing or can't
    /// be decoded. What is wrong with the file is added to `findings` when it is first asked for.
    QImage read(const QString& name, ImageUse use, Findings& findings);

private:
    QUrl m_folder;
    std::map<QString, QImage> m_images;
};

/// Tells whether a base color is transparent in places, which an opaque material ignores.
void checkAlpha(const QImage& image, const QString& name, Findings& findings);

/// Tells whether a normal map looks inverted or is not one of unit normals. `isGenerated`: Quarlin made it
/// from a single texture.
void checkNormals(const QImage& image, const QString& name, bool isGenerated, Findings& findings);

}  // namespace quarlin
