#include "check/checked_material.h"

#include "check/embedded_images.h"
#include "check/glb_file.h"
#include "check/gltf_values.h"
#include "imaging/files/file_bytes.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The element of `array` at `index`, if there is one.
std::optional<QJsonObject> elementAt(const QJsonValue& array, const QJsonValue& index) {
    const QJsonArray elements = array.toArray();
    const int position = index.toInt(-1);
    if (position < 0 || position >= elements.size()) {
        return std::nullopt;
    }
    return elements.at(position).toObject();
}

bool isBinary(const QString& name) { return name.endsWith(u".glb"_s, Qt::CaseInsensitive); }

/// Reads one document and collects the findings on it.
class Reader {
public:
    /// `buffer` is the one of a .glb.
    Reader(QString name, QJsonObject document, QByteArray buffer)
        : m_name(std::move(name)), m_document(std::move(document)), m_buffer(std::move(buffer)) {}

    CheckedSet read() {
        const QString version = m_document[u"asset"_s][u"version"_s].toString();
        if (!version.startsWith(u"2."_s)) {
            add(FindingKind::invalidGLTF, u"its version is not 2"_s);
            return m_set;
        }
        addAll(checkExtensions(m_document, m_name));
        const QJsonArray materials = m_document[u"materials"_s].toArray();
        if (materials.isEmpty()) {
            add(FindingKind::invalidGLTF, u"it lists no materials"_s);
        }
        for (const auto& material : materials) {
            m_set.materials.push_back(materialOf(material.toObject()));
        }
        return m_set;
    }

private:
    CheckedMaterial materialOf(const QJsonObject& material) {
        const QJsonObject surface = material[u"pbrMetallicRoughness"_s].toObject();
        if (!surface.contains(u"baseColorTexture"_s)) {
            add(FindingKind::noBaseColor);
        }
        if (!surface.contains(u"metallicRoughnessTexture"_s)) {
            add(FindingKind::noORM);
        }
        addAll(checkValues(material, m_name));
        const QString alphaMode = material[u"alphaMode"_s].toString(u"OPAQUE"_s);
        return {.document = m_name,
                .name = material[u"name"_s].toString(),
                .baseColor = image(surface, u"baseColorTexture"_s),
                .metallicRoughness = image(surface, u"metallicRoughnessTexture"_s),
                .occlusion = image(material, u"occlusionTexture"_s),
                .normal = image(material, u"normalTexture"_s),
                .emissive = image(material, u"emissiveTexture"_s),
                .isOpaque = alphaMode == u"OPAQUE"_s,
                .isRoughnessOff = surface[u"roughnessFactor"_s].toDouble(1) == 0,
                .isMetallicOff = surface[u"metallicFactor"_s].toDouble(1) == 0};
    }

    /// The file of the image that the member `key` of `owner` refers to, if it can be checked.
    std::optional<QString> image(const QJsonObject& owner, const QString& key) {
        if (!owner.contains(key)) {
            return std::nullopt;
        }
        const auto texture = elementAt(m_document[u"textures"_s], owner[key].toObject()[u"index"_s]);
        const bool isWebp = texture && !texture->contains(u"source"_s) &&
                            texture->value(u"extensions"_s).toObject().contains(u"EXT_texture_webp"_s);
        if (isWebp) {
            add(FindingKind::webpTexture, key);
            return std::nullopt;
        }
        const QJsonValue index = texture ? texture->value(u"source"_s) : QJsonValue();
        const auto image = elementAt(m_document[u"images"_s], index);
        if (!image) {
            add(FindingKind::invalidGLTF, key + u" refers to an image that it does not have"_s);
            return std::nullopt;
        }
        const QString uri = image->value(u"uri"_s).toString();
        if (uri.isEmpty() || uri.startsWith(u"data:"_s, Qt::CaseInsensitive)) {
            return embedded(*image, index.toInt(), key);
        }
        return fileOf(uri, key);
    }

    /// The name for an image that is part of the document.
    std::optional<QString> embedded(const QJsonObject& image, int index, const QString& key) {
        if (isInBufferFile(m_document, image)) {
            add(FindingKind::embeddedImage, u"that of "_s + key);
            return std::nullopt;
        }
        const QString uri = image[u"uri"_s].toString();
        const auto bytes = uri.isEmpty() ? dataOfImage(m_document, image, m_buffer) : dataOfUri(uri);
        if (!bytes) {
            add(FindingKind::invalidGLTF, u"the image of "_s + key + u" is not complete"_s);
            return std::nullopt;
        }
        const QString name = m_name + u" image "_s + QString::number(index);
        m_set.embedded.emplace(name, *bytes);
        return name;
    }

    std::optional<QString> fileOf(const QString& uri, const QString& key) {
        static const QRegularExpression scheme(u"^[A-Za-z][A-Za-z0-9+.-]*:"_s);
        const QString file = QDir::cleanPath(QUrl::fromPercentEncoding(uri.toUtf8()));
        if (scheme.match(uri).hasMatch() || file.startsWith(u'/') || file.startsWith(u'\\') ||
            file == u".."_s || file.startsWith(u"../"_s)) {
            add(FindingKind::outsideReference, key + u" is "_s + uri);
            return std::nullopt;
        }
        return file;
    }

    void add(FindingKind kind, const QString& detail = {}) {
        m_set.findings.push_back(findingOf(kind, m_name, detail));
    }

    void addAll(const Findings& findings) {
        m_set.findings.insert(m_set.findings.end(), findings.begin(), findings.end());
    }

    QString m_name;
    QJsonObject m_document;
    QByteArray m_buffer;
    CheckedSet m_set;
};

}  // namespace

bool isDocument(const QString& name) {
    return isBinary(name) || name.endsWith(u".gltf"_s, Qt::CaseInsensitive);
}

CheckedSet readGLTF(const QUrl& folder, const QString& name) {
    GlbFile content;
    try {
        content.json = readFile(fileIn(folder, name)).bytes;
    } catch (const FileError&) {
        return {{}, {findingOf(FindingKind::unreadableDocument, name)}};
    }
    if (isBinary(name)) {
        const auto parts = readGLB(content.json);
        if (!parts) {
            return {{}, {findingOf(FindingKind::invalidGLB, name)}};
        }
        content = *parts;
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(content.json, &error);
    if (error.error != QJsonParseError::NoError) {
        return {{},
                {findingOf(FindingKind::invalidJSON, name,
                           error.errorString() + u" at byte "_s + QString::number(error.offset))}};
    }
    return Reader(name, document.object(), content.buffer).read();
}

}  // namespace quarlin
