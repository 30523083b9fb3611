#include "checked_material.h"

#include "file_bytes.h"
#include "file_names.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace quarlin {

namespace {

/// The element of an array that `index` names; nothing where there is none.
std::optional<QJsonObject> elementAt(const QJsonValue& array, const QJsonValue& index) {
    const QJsonArray elements = array.toArray();
    const int position = index.toInt(-1);
    if (position < 0 || position >= elements.size()) {
        return std::nullopt;
    }
    return elements.at(position).toObject();
}

/// Reads one document, and collects what is found on the way.
class Reader {
public:
    Reader(QString name, QJsonObject document) : m_name(std::move(name)), m_document(std::move(document)) {}

    CheckedSet read() {
        const QString version = m_document[QStringLiteral("asset")][QStringLiteral("version")].toString();
        if (!version.startsWith(QStringLiteral("2."))) {
            add(FindingKind::invalidGLTF, QStringLiteral("This is no glTF 2.0 document."));
            return m_set;
        }
        const QJsonArray materials = m_document[QStringLiteral("materials")].toArray();
        if (materials.isEmpty()) {
            add(FindingKind::invalidGLTF, QStringLiteral("The document has no material."));
        }
        for (const auto& material : materials) {
            m_set.materials.push_back(materialOf(material.toObject()));
        }
        return m_set;
    }

private:
    CheckedMaterial materialOf(const QJsonObject& material) {
        const QJsonObject surface = material[QStringLiteral("pbrMetallicRoughness")].toObject();
        if (!surface.contains(QStringLiteral("baseColorTexture"))) {
            add(FindingKind::noBaseColor, QStringLiteral("The material has no base colour image."));
        }
        if (!surface.contains(QStringLiteral("metallicRoughnessTexture"))) {
            add(FindingKind::noORM, QStringLiteral("The material has no ORM image."));
        }
        const QString alphaMode = material[QStringLiteral("alphaMode")].toString(QStringLiteral("OPAQUE"));
        return {.document = m_name,
                .name = material[QStringLiteral("name")].toString(),
                .baseColor = image(surface, QStringLiteral("baseColorTexture")),
                .metallicRoughness = image(surface, QStringLiteral("metallicRoughnessTexture")),
                .occlusion = image(material, QStringLiteral("occlusionTexture")),
                .normal = image(material, QStringLiteral("normalTexture")),
                .isOpaque = alphaMode == QStringLiteral("OPAQUE")};
    }

    /// The file of the image that the member `key` of `owner` refers to.
    std::optional<QString> image(const QJsonObject& owner, const QString& key) {
        if (!owner.contains(key)) {
            return std::nullopt;
        }
        const auto texture =
            elementAt(m_document[QStringLiteral("textures")], owner[key].toObject()[QStringLiteral("index")]);
        const auto image = texture ? elementAt(m_document[QStringLiteral("images")],
                                               texture->value(QStringLiteral("source")))
                                   : std::nullopt;
        if (!image) {
            add(FindingKind::invalidGLTF,
                key + QStringLiteral(" refers to an image that the document does not "
                                     "have."));
            return std::nullopt;
        }
        const QString uri = image->value(QStringLiteral("uri")).toString();
        if (uri.isEmpty() || uri.startsWith(QStringLiteral("data:"), Qt::CaseInsensitive)) {
            add(FindingKind::embeddedImage, QStringLiteral("The image of ") + key +
                                                QStringLiteral(" is part of the document, and not checked."));
            return std::nullopt;
        }
        return fileOf(uri, key);
    }

    std::optional<QString> fileOf(const QString& uri, const QString& key) {
        static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:"));
        const QString file = QDir::cleanPath(QUrl::fromPercentEncoding(uri.toUtf8()));
        if (scheme.match(uri).hasMatch() || file.startsWith(u'/') || file.startsWith(u'\\') ||
            file == QStringLiteral("..") || file.startsWith(QStringLiteral("../"))) {
            add(FindingKind::outsideReference,
                key + QStringLiteral(" refers to ") + uri + QStringLiteral(", which is outside the folder."));
            return std::nullopt;
        }
        return file;
    }

    void add(FindingKind kind, const QString& text) { m_set.findings.push_back({kind, m_name, text}); }

    QString m_name;
    QJsonObject m_document;
    CheckedSet m_set;
};

}  // namespace

CheckedSet readGLTF(const QUrl& folder, const QString& name) {
    const std::optional<FileBytes> file = readFile(fileIn(folder, name));
    if (!file) {
        return {{}, {{FindingKind::unreadableDocument, name, QStringLiteral("The document can't be read.")}}};
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file->bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        return {{},
                {{FindingKind::invalidJSON, name,
                  QStringLiteral("The document is no JSON: ") + error.errorString() +
                      QStringLiteral(" at byte ") + QString::number(error.offset) + u'.'}}};
    }
    return Reader(name, document.object()).read();
}

}  // namespace quarlin
