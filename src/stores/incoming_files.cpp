#include "stores/incoming_files.h"

#include "imaging/files/file_names.h"
#include "model/image_file_type.h"

#include <QFileInfo>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QString& path) { return lastPathComponent(QUrl::fromLocalFile(path)); }

std::optional<QString> singleFile(const QList<QUrl>& locations) {
    if (locations.size() != 1 || QFileInfo(locations.front().toLocalFile()).isDir()) {
        return std::nullopt;
    }
    return locations.front().toLocalFile();
}

/// All pictures, as if they were in one folder. Throws `TextureSearchError`.
TextureFolder picturesOf(const QList<QUrl>& locations) {
    TextureFolder pictures;
    for (const QUrl& location : locations) {
        const QString path = location.adjusted(QUrl::StripTrailingSlash).toLocalFile();
        const QFileInfo info(path);
        if (info.isDir()) {
            pictures.path = path;
            for (const TextureFolder& folder : findTextures(path, {}).folders) {
                pictures.files += folder.files;
                pictures.unreadFiles += folder.unreadFiles;
            }
        } else if (isUnreadImageExtension(info.suffix())) {
            pictures.unreadFiles += path;
        } else {
            pictures.files += path;
        }
        if (pictures.path.isEmpty()) {
            pictures.path = info.absolutePath();
        }
    }
    pictures.files.removeDuplicates();
    return pictures;
}

QStringList unusedNotes(const std::vector<UnusedFile>& unused) {
    QStringList notes;
    for (const UnusedFile& file : unused) {
        notes += u"Not used: "_s + nameOf(file.path) + u", "_s + file.text;
    }
    return notes;
}

/// Says of which things, in `names`, only the first is taken.
QStringList severalNote(const QString& things, const QStringList& names) {
    return names.size() < 2 ? QStringList()
                            : QStringList{QString::number(names.size()) + u' ' + things + u" found: "_s +
                                          names.join(u", "_s) + u". Loading the first one."_s};
}

/// Calls `match` with the pictures; a folder that can't be searched is its failure.
template <typename Incoming, typename Match>
Incoming matched(const QList<QUrl>& locations, Match match) {
    try {
        return match(picturesOf(locations));
    } catch (const TextureSearchError& error) {
        Incoming incoming;
        incoming.failure = error.reason();
        return incoming;
    }
}

IncomingMaterial firstMaterial(const MatchedTextures& textures) {
    IncomingMaterial incoming;
    QStringList materials;
    for (const TextureSet& set : textures.sets) {
        materials += set.material;
    }
    incoming.notes = severalNote(u"materials"_s, materials) + unusedNotes(textures.unused);
    if (textures.sets.empty()) {
        incoming.failure = u"No file name matches a slot."_s;
    } else if (!textures.sets.front().refusal.isEmpty()) {
        incoming.failure = textures.sets.front().refusal;
    } else {
        incoming.set = textures.sets.front();
    }
    return incoming;
}

}  // namespace

IncomingMaterial incomingMaterial(const QList<QUrl>& locations) {
    const std::optional<QString> single = singleFile(locations);
    return matched<IncomingMaterial>(locations, [&](const TextureFolder& pictures) {
        const MatchedTextures textures = matchTextures(pictures, {});
        if (single && textures.sets.empty()) {
            TextureSet set;
            set.material = fileStem(locations.front());
            set.files = {{TextureSlotKind::baseColor, {*single, std::nullopt}}};
            return IncomingMaterial{set, {}, std::nullopt};
        }
        return firstMaterial(textures);
    });
}

IncomingSource incomingSource(const QList<QUrl>& locations) {
    if (singleFile(locations)) {
        return {locations.front(), {}, std::nullopt};
    }
    return matched<IncomingSource>(locations, [](const TextureFolder& pictures) {
        const BaseColors colors = findBaseColors(pictures, {});
        IncomingSource incoming;
        QStringList names;
        for (const QString& path : colors.files) {
            names += nameOf(path);
        }
        incoming.notes = severalNote(u"sources"_s, names) + unusedNotes(colors.unused);
        if (colors.files.isEmpty()) {
            incoming.failure = u"No file is a base color."_s;
        } else {
            incoming.file = QUrl::fromLocalFile(colors.files.front());
        }
        return incoming;
    });
}

}  // namespace quarlin
