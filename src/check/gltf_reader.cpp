#include "check/checked_material.h"

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

/// Reads one document and collects the findings on it.
class Reader {
public:
    Reader(QString name, QJsonObject document) : m_name(std::move(name)), m_document(std::move(document)) {}

    CheckedSet read() {
        const QString version = m_document[u"asset"_s][u"version"_s].toString();
        if (!version.startsWith(u"2."_s)) {
            add(FindingKind::invalidGLTF, u"its version is not 2"_s);
            return m_set;
        }
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
        const QString alphaMode = material[u"alphaMode"_s].toString(u"OPAQUE"_s);
        return {.document = m_name,
                .name = material[u"name"_s].toString(),
                .baseColor = image(surface, u"baseColorTexture"_s),
                .metallicRoughness = image(surface, u"metallicRoughnessTexture"_s),
                .occlusion = image(material, u"occlusionTexture"_s),
                .normal = image(material, u"normalTexture"_s),
                .isOpaque = alphaMode == u"OPAQUE"_s};
    }

    /// The file of the image that the member `key` of `owner` refers to, if it can be checked.
    std::optional<QString> image(const QJsonObject& owner, const QString& key) {
        if (!owner.contains(key)) {
            return std::nullopt;
        }
        const auto texture = elementAt(m_document[u"textures"_s], owner[key].toObject()[u"index"_s]);
        const auto image =
            texture ? elementAt(m_document[u"images"_s], texture->value(u"source"_s)) : std::nullopt;
        if (!image) {
            add(FindingKind::invalidGLTF, key + u" refers to an image that it does not have"_s);
            return std::nullopt;
        }
        const QString uri = image->value(u"uri"_s).toString();
        if (uri.isEmpty() || uri.startsWith(u"data:"_s, Qt::CaseInsensitive)) {
            add(FindingKind::embeddedImage, u"that of "_s + key);
            return std::nullopt;
        }
        return fileOf(uri, key);
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

    QString m_name;
    QJsonObject m_document;
    CheckedSet m_set;
};

}  // namespace

CheckedSet readGLTF(const QUrl& folder, const QString& name) {
    QByteArray bytes;
    try {
        bytes = readFile(fileIn(folder, name)).bytes;
    } catch (const FileError&) {
        return {{}, {findingOf(FindingKind::unreadableDocument, name)}};
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        return {{},
                {findingOf(FindingKind::invalidJSON, name,
                           error.errorString() + u" at byte "_s + QString::number(error.offset))}};
    }
    return Reader(name, document.object()).read();
}

}  // namespace quarlin
