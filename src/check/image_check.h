#pragma once

#include "check/checked_material.h"
#include "check/finding.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QUrl>

#include <map>
#include <optional>

namespace quarlin {

/// What an image is used for in a material.
enum class ImageUse { baseColor, orm, normal, emissive };

/// The images of a set. Each is read and checked only once, even if it has several uses.
class CheckedImages {
public:
    /// `embedded` are the contents of the images that are not files.
    CheckedImages(QUrl folder, std::map<QString, QByteArray> embedded)
        : m_folder(std::move(folder)), m_embedded(std::move(embedded)) {}

    /// The pixels of the image `name`, a file in the folder or embedded, used as `use`; a null image if it is
    /// missing or can't be decoded. The first request for a file adds what is wrong with it to `findings`.
    QImage read(const QString& name, ImageUse use, Findings& findings);

private:
    struct Content {
        QByteArray bytes;
        QImage image;
    };
    /// The image, or nothing and what is wrong with it.
    std::optional<Content> decoded(const QString& name, Findings& findings) const;

    QUrl m_folder;
    std::map<QString, QByteArray> m_embedded;
    std::map<QString, QImage> m_images;
};

/// Adds a finding if a base color is transparent in places, which an opaque material ignores.
void checkAlpha(const QImage& image, const QString& name, Findings& findings);

/// Adds findings if the channels of an ORM image can't be meant: if they are all the same, if everything is
/// occluded, or if `material` switches one of them off that has values.
void checkORM(const QImage& image, const CheckedMaterial& material, Findings& findings);

/// Adds a finding if a base color looks like a normal map.
void checkForNormals(const QImage& image, const QString& name, Findings& findings);

/// Adds findings if a normal map looks inverted, or if its normals do not have length 1 or point inward.
/// `isGenerated` says whether Quarlin generated the map from a single texture.
void checkNormals(const QImage& image, const QString& name, bool isGenerated, Findings& findings);

}  // namespace quarlin
