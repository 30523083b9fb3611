#include "matching/texture_family.h"

#include "imaging/files/file_names.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

NamedFile namedFile(const QString& path, bool isRead, const MapWords& words) {
    const QString name = lastPathComponent(QUrl::fromLocalFile(path));
    const qsizetype dot = name.lastIndexOf(u'.');
    return {path, name.mid(dot + 1).toLower(), isRead,
            readTextureName(dot > 0 ? name.left(dot) : name, words)};
}

/// Files whose names state the same material.
struct Candidates {
    std::vector<std::size_t> files;
    bool hasClear = false;
    QSet<MapKind> ambiguous;
    QSet<MapKind> letters;

    void add(std::size_t index, const NamedMap& map) {
        files.push_back(index);
        // A preview tells nothing about the pictures beside it.
        if (map.kind == MapKind::preview) {
            return;
        }
        hasClear |= map.evidence == Evidence::clear;
        if (map.evidence == Evidence::ambiguous) {
            ambiguous.insert(map.kind);
        } else if (map.evidence == Evidence::letter) {
            letters.insert(map.kind);
        }
    }

    /// The weakest evidence that counts among these files; `hasPlain`: there is also a file that is named
    /// like the material.
    Evidence accepted(bool hasPlain) const {
        const bool ambiguousCounts =
            hasClear || (!ambiguous.isEmpty() && (hasPlain || ambiguous.size() + letters.size() > 1));
        const bool lettersCount =
            ambiguousCounts || (letters.contains(MapKind::normal) && (hasPlain || letters.size() > 1));
        return lettersCount ? Evidence::letter : ambiguousCounts ? Evidence::ambiguous : Evidence::clear;
    }
};

class Grouping {
public:
    Grouping(const TextureFolder& folder, const MapWords& words) {
        for (const QString& path : folder.files) {
            m_files.push_back(namedFile(path, true, words));
        }
        for (const QString& path : folder.unreadFiles) {
            m_files.push_back(namedFile(path, false, words));
        }
        std::sort(m_files.begin(), m_files.end(),
                  [](const NamedFile& left, const NamedFile& right) { return left.path < right.path; });
    }

    TextureFamilies run() {
        settleNumbers();
        collectCandidates();
        acceptMaps();
        acceptPlainNames();
        return families();
    }

private:
    /// A number is a variant if the same material has a map without one, else part of the material's name.
    void settleNumbers() {
        QSet<QString> withoutNumber;
        for (const NamedFile& file : m_files) {
            if (file.name.map && file.name.map->number.isEmpty()) {
                withoutNumber.insert(file.name.map->key);
            }
        }
        for (NamedFile& file : m_files) {
            auto& map = file.name.map;
            if (!map || map->number.isEmpty()) {
                continue;
            }
            if (withoutNumber.contains(map->key)) {
                file.name.variant = map->number.toInt();
            } else {
                map->material += (map->material.isEmpty() ? QString() : u"_"_s) + map->number;
                map->key = materialKey(map->material);
            }
        }
    }

    void collectCandidates() {
        for (std::size_t index = 0; index < m_files.size(); ++index) {
            if (const auto& map = m_files[index].name.map) {
                m_candidates[map->key].add(index, *map);
            }
            if (const QString& key = m_files[index].name.plainKey; !key.isEmpty()) {
                m_plainNames.insert(key);
            }
        }
    }

    void acceptMaps() {
        m_isAccepted.assign(m_files.size(), false);
        for (auto candidates = m_candidates.cbegin(); candidates != m_candidates.cend(); ++candidates) {
            const Evidence weakest = candidates->accepted(m_plainNames.contains(candidates.key()));
            for (const std::size_t index : candidates->files) {
                m_isAccepted[index] = m_files[index].name.map->evidence >= weakest;
                if (m_isAccepted[index] && m_files[index].name.map->kind != MapKind::preview) {
                    m_families.insert(candidates.key());
                }
            }
        }
    }

    void acceptPlainNames() {
        for (std::size_t index = 0; index < m_files.size(); ++index) {
            const TextureName& name = m_files[index].name;
            if (!m_isAccepted[index] && m_families.contains(name.plainKey)) {
                m_files[index].name.map.reset();
                m_isAccepted[index] = true;
            }
        }
    }

    TextureFamilies families() {
        TextureFamilies result;
        QHash<QString, std::size_t> places;
        for (std::size_t index = 0; index < m_files.size(); ++index) {
            NamedFile& file = m_files[index];
            const auto& map = file.name.map;
            if (!m_isAccepted[index]) {
                file.name.map.reset();
                result.others.push_back(std::move(file));
                continue;
            }
            const QString key = map ? map->key : file.name.plainKey;
            if (!places.contains(key)) {
                places.insert(key, result.families.size());
                result.families.push_back({map ? map->material : file.name.plain, {}});
            }
            FamilyMember member{file, map ? map->kind : MapKind::baseColor, map.has_value()};
            result.families[places.value(key)].members.push_back(std::move(member));
        }
        return result;
    }

    std::vector<NamedFile> m_files;
    QHash<QString, Candidates> m_candidates;
    QSet<QString> m_plainNames;
    /// The keys of the materials that have a map.
    QSet<QString> m_families;
    std::vector<bool> m_isAccepted;
};

}  // namespace

TextureFamilies groupTextures(const TextureFolder& folder, const MapWords& words) {
    return Grouping(folder, words).run();
}

}  // namespace quarlin
