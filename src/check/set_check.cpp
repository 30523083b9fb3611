#include "check/set_check.h"

#include "check/checked_material.h"
#include "check/image_check.h"
#include "check/normal_occlusion.h"
#include "imaging/files/file_names.h"
#include "imaging/files/folder_listing.h"
#include "model/normal_output_names.h"

#include <QFileInfo>

#include <system_error>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

void checkName(const CheckedMaterial& material, Findings& findings) {
    const qsizetype length = material.name.toUtf8().size();
    if (length > longestInventoryName) {
        findings.push_back(
            findingOf(FindingKind::nameCut, material.document, u"it has "_s + QString::number(length)));
    }
}

void checkOcclusion(const CheckedMaterial& material, Findings& findings) {
    if (material.occlusion && material.occlusion != material.metallicRoughness) {
        findings.push_back(findingOf(FindingKind::occlusionNotORM, material.document, *material.occlusion));
    }
}

/// Whether the material belongs to a set that Quarlin generated from a single texture.
bool isGenerated(const CheckedMaterial& material) {
    return material.normal == NormalOutputNames{material.name}.normal();
}

class MaterialCheck {
public:
    MaterialCheck(const CheckedMaterial& material, CheckedImages& images, Findings& findings)
        : m_material(material), m_images(images), m_findings(findings) {}

    void run() {
        checkName(m_material, m_findings);
        checkOcclusion(m_material, m_findings);
        const QImage baseColor = read(m_material.baseColor, ImageUse::baseColor);
        if (!baseColor.isNull() && m_material.isOpaque) {
            checkAlpha(baseColor, *m_material.baseColor, m_findings);
        }
        if (!baseColor.isNull()) {
            checkForNormals(baseColor, *m_material.baseColor, m_findings);
        }
        const QImage orm = read(m_material.metallicRoughness, ImageUse::orm);
        if (!orm.isNull()) {
            checkORM(orm, m_material, m_findings);
        }
        if (m_material.occlusion != m_material.metallicRoughness) {
            read(m_material.occlusion, ImageUse::orm);
        }
        const QImage normal = read(m_material.normal, ImageUse::normal);
        if (!normal.isNull()) {
            checkNormals(normal, *m_material.normal, isGenerated(m_material), m_findings);
            checkHollows(normal, orm);
        }
        read(m_material.emissive, ImageUse::emissive);
        checkSizes();
        checkUses();
    }

private:
    QImage read(const std::optional<QString>& name, ImageUse use) {
        QImage image = name ? m_images.read(*name, use, m_findings) : QImage();
        if (!image.isNull()) {
            m_sizes.emplace_back(*name, image.size());
        }
        return image;
    }

    /// In a generated set, bright is both high and little occluded, whichever way its green points.
    void checkHollows(const QImage& normal, const QImage& orm) {
        constexpr double clearCorrelation = 0.5;
        if (!orm.isNull() && !isGenerated(m_material) && hollowCorrelation(normal, orm) > clearCorrelation) {
            m_findings.push_back(findingOf(FindingKind::normalReversed, *m_material.normal));
        }
    }

    void checkSizes() {
        for (const auto& [name, size] : m_sizes) {
            if (size != m_sizes.front().second) {
                m_findings.push_back(findingOf(FindingKind::differentSizes, name,
                                               m_sizes.front().first + u" has another size"_s));
            }
        }
    }

    /// Occlusion is part of the ORM image, and what a surface shines in is often its color.
    void checkUses() {
        const auto check = [&](const std::optional<QString>& left, const std::optional<QString>& right) {
            if (left && left == right) {
                m_findings.push_back(findingOf(FindingKind::sharedImage, *left));
            }
        };
        check(m_material.baseColor, m_material.metallicRoughness);
        check(m_material.baseColor, m_material.normal);
        check(m_material.metallicRoughness, m_material.normal);
        check(m_material.metallicRoughness, m_material.emissive);
        check(m_material.normal, m_material.emissive);
    }

    const CheckedMaterial& m_material;
    CheckedImages& m_images;
    Findings& m_findings;
    std::vector<std::pair<QString, QSize>> m_sizes;
};

}  // namespace

namespace {

Findings checkMaterials(const QUrl& folder, CheckedSet set) {
    CheckedImages images(folder, std::move(set.embedded));
    for (const CheckedMaterial& material : set.materials) {
        MaterialCheck(material, images, set.findings).run();
    }
    return set.findings;
}

}  // namespace

Findings checkSet(const QUrl& location) {
    const QString name = lastPathComponent(location);
    if (isDocument(name) && QFileInfo(location.toLocalFile()).isFile()) {
        const QUrl folder = location.adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash);
        return checkMaterials(folder, readGLTF(folder, name));
    }
    return checkMaterials(location, readSet(location));
}

std::vector<QUrl> findSets(const QUrl& folder) {
    std::vector<QUrl> sets;
    QStringList names;
    QStringList below;
    try {
        for (const FolderEntry& entry : listFolder(folder)) {
            if (!entry.name.startsWith(u'.')) {
                (entry.kind == EntryKind::folder ? below : names) += entry.name;
            }
        }
    } catch (const std::system_error&) {
        // The check says that it can't be read.
        return {folder};
    }
    if (hasSet(names)) {
        sets.push_back(folder);
    }
    for (const QString& name : below) {
        const std::vector<QUrl> found = findSets(fileIn(folder, name));
        sets.insert(sets.end(), found.begin(), found.end());
    }
    return sets;
}

}  // namespace quarlin
