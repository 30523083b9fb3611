#include "check/gltf_values.h"

#include <QJsonArray>
#include <QStringList>

#include <algorithm>
#include <array>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// A number of a material, or the numbers of a color.
struct Factor {
    /// The object that has it; empty for the material itself.
    QLatin1StringView owner;
    QLatin1StringView key;
    bool hasUpperBound = true;
    /// The texture that the factor switches off when it is zero; empty if there is none.
    QLatin1StringView texture = {};
    /// Whether a factor that is missing is zero.
    bool isZeroByDefault = false;
};

/// Metallic and roughness are not here: a texture is often used for one of them alone, with zero for the
/// other.
constexpr std::array factors{
    Factor{"pbrMetallicRoughness"_L1, "baseColorFactor"_L1, true, "baseColorTexture"_L1},
    Factor{"pbrMetallicRoughness"_L1, "metallicFactor"_L1},
    Factor{"pbrMetallicRoughness"_L1, "roughnessFactor"_L1},
    Factor{""_L1, "emissiveFactor"_L1, true, "emissiveTexture"_L1, true},
    Factor{""_L1, "alphaCutoff"_L1, false},
    Factor{"occlusionTexture"_L1, "strength"_L1, true, "occlusionTexture"_L1},
};

QJsonObject ownerOf(const QJsonObject& material, const Factor& factor) {
    return factor.owner.isEmpty() ? material : material[factor.owner].toObject();
}

/// The numbers of a factor; something that is not a number is out of every range.
QList<double> numbersOf(const QJsonValue& value) {
    constexpr double invalid = -1;
    QList<double> numbers;
    if (value.isArray()) {
        for (const auto& element : value.toArray()) {
            numbers += element.toDouble(invalid);
        }
        return numbers;
    }
    return {value.toDouble(invalid)};
}

/// Whether the factor makes every color black; the alpha of a base color doesn't count.
bool isZero(const QList<double>& numbers) {
    constexpr qsizetype colors = 3;
    const auto end = numbers.begin() + std::min(numbers.size(), colors);
    return !numbers.isEmpty() && std::all_of(numbers.begin(), end, [](double number) { return number == 0; });
}

class ValueCheck {
public:
    ValueCheck(const QJsonObject& material, QString document)
        : m_material(material), m_document(std::move(document)) {}

    Findings run() {
        checkAlphaMode();
        for (const Factor& factor : factors) {
            checkFactor(factor);
        }
        const QJsonObject normal = m_material[u"normalTexture"_s].toObject();
        if (normal.contains(u"scale"_s) && normal[u"scale"_s].toDouble(1) == 0) {
            add(FindingKind::factorOff, u"scale of normalTexture"_s);
        }
        checkTexCoords(m_material);
        checkTexCoords(m_material[u"pbrMetallicRoughness"_s].toObject());
        return m_findings;
    }

private:
    void checkAlphaMode() {
        const QJsonValue mode = m_material[u"alphaMode"_s];
        const QStringList valid{u"OPAQUE"_s, u"MASK"_s, u"BLEND"_s};
        if (!mode.isUndefined() && !valid.contains(mode.toString())) {
            add(FindingKind::invalidAlphaMode, mode.isString() ? mode.toString() : u"it is no text"_s);
        }
    }

    void checkFactor(const Factor& factor) {
        const QJsonObject owner = ownerOf(m_material, factor);
        // Occlusion is its own owner: without it, there is neither texture nor factor.
        const bool hasTexture = owner.contains(factor.texture) || factor.owner == factor.texture;
        if (!owner.contains(factor.key)) {
            if (factor.isZeroByDefault && hasTexture) {
                add(FindingKind::factorOff, factor.key + u" is missing"_s);
            }
            return;
        }
        const QList<double> numbers = numbersOf(owner[factor.key]);
        const bool isInRange = std::all_of(numbers.begin(), numbers.end(), [&](double number) {
            return number >= 0 && (number <= 1 || !factor.hasUpperBound);
        });
        if (!isInRange) {
            add(FindingKind::invalidFactor, factor.key);
        } else if (!factor.texture.isEmpty() && hasTexture && isZero(numbers)) {
            add(FindingKind::factorOff, factor.key);
        }
    }

    void checkTexCoords(const QJsonObject& owner) {
        for (const QString& key : owner.keys()) {
            if (key.endsWith(u"Texture"_s) && owner[key].toObject()[u"texCoord"_s].toInt(0) != 0) {
                add(FindingKind::otherTexCoord, key);
            }
        }
    }

    void add(FindingKind kind, const QString& detail) {
        m_findings.push_back(findingOf(kind, m_document, detail));
    }

    const QJsonObject& m_material;
    QString m_document;
    Findings m_findings;
};

}  // namespace

Findings checkValues(const QJsonObject& material, const QString& document) {
    return ValueCheck(material, document).run();
}

Findings checkExtensions(const QJsonObject& gltf, const QString& document) {
    Findings findings;
    for (const auto& element : gltf[u"extensionsRequired"_s].toArray()) {
        const QString name = element.toString();
        // Of those that concern materials, the viewer reads the offset and scale of textures.
        if (name == u"EXT_texture_webp"_s) {
            findings.push_back(findingOf(FindingKind::webpTexture, document));
        } else if (name != u"KHR_texture_transform"_s) {
            findings.push_back(findingOf(FindingKind::requiredExtension, document, name));
        }
    }
    return findings;
}

}  // namespace quarlin
