#include "matching/texture_set.h"

#include "imaging/files/file_names.h"
#include "matching/slot_choice.h"
#include "matching/texture_family.h"

#include <QSet>

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString fileName(const QString& path) { return lastPathComponent(QUrl::fromLocalFile(path)); }

/// `text` with its article: "a height map", "an opacity map".
QString withArticle(const QString& text) {
    return (u"aeio"_s.contains(text.front()) ? u"an "_s : u"a "_s) + text;
}

UnusedFile notRead(const NamedFile& file, const QString& addition = {}) {
    return {file.path, UnusedReason::formatNotRead,
            file.extension.toUpper() + u" files are not read"_s + addition};
}

UnusedFile withoutSlot(const NamedFile& file) {
    return file.isRead ? UnusedFile{file.path, UnusedReason::noSlotInName, u"its name matches no slot"_s}
                       : notRead(file);
}

UnusedFile withoutUse(const FamilyMember& member) {
    const QString kind = title(member.kind);
    return {member.file.path, UnusedReason::otherMap,
            u"it is "_s + withArticle(kind) + u", which a material has no slot for"_s};
}

/// Chooses the files of one material.
class FamilyMatch {
public:
    FamilyMatch(const TextureFamily& family, const TextureRules& rules) : m_family(family), m_rules(rules) {}

    /// The set; one without files if the family has none that can be used.
    TextureSet set(const QString& folderName) {
        for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
            choose(slot);
        }
        TextureSet set;
        // The material is spelled as in the name of the base color, as it is for a single set.
        const auto base = m_chosen.find(TextureSlotKind::baseColor);
        set.material = base == m_chosen.end() ? m_family.material : materialOf(*base->second.member);
        if (set.material.isEmpty()) {
            set.material = folderName;
        }
        QStringList tiles;
        for (const auto& [slot, candidate] : m_chosen) {
            const NamedFile& file = candidate.member->file;
            set.files.emplace(slot, MaterialInput{file.path, candidate.use.channel});
            set.roughnessIsGloss |= candidate.use.isGloss;
            const auto& map = file.name.map;
            set.normalIsDirectX |=
                slot == TextureSlotKind::normal && map && map->green == GreenDirection::directX;
            if (map && map->tile) {
                tiles += fileName(file.path);
            }
        }
        if (!tiles.isEmpty()) {
            set.refusal = u"UDIM tiles are not supported ("_s + tiles.join(u", "_s) + u')';
        }
        return set;
    }

    /// The files that the set leaves out, after `set`.
    void addUnused(std::vector<UnusedFile>& unused) const {
        for (const FamilyMember& member : m_family.members) {
            if (!isUsed(member.kind)) {
                unused.push_back(withoutUse(member));
            } else if (!member.file.isRead) {
                unused.push_back(notRead(member.file, missingSlot(member)));
            } else if (!isChosen(member)) {
                unused.push_back(secondChoice(member));
            }
        }
    }

private:
    QString materialOf(const FamilyMember& member) const {
        const auto& map = member.file.name.map;
        return map ? map->material : member.file.name.plain;
    }

    std::vector<SlotCandidate> candidates(TextureSlotKind slot, bool isRead) const {
        std::vector<SlotCandidate> found;
        for (const FamilyMember& member : m_family.members) {
            for (const auto& use : tableRow(member.kind).uses) {
                if (use && use->slot == slot && member.file.isRead == isRead) {
                    found.push_back({&member, *use});
                }
            }
        }
        return found;
    }

    void choose(TextureSlotKind slot) {
        for (const SlotCandidate& candidate : candidates(slot, true)) {
            const auto [place, isFirst] = m_chosen.emplace(slot, candidate);
            if (!isFirst && !chooseForSlot(place->second, candidate, m_rules.preference).isLeft) {
                place->second = candidate;
            }
        }
    }

    bool isChosen(const FamilyMember& member) const {
        return std::any_of(m_chosen.begin(), m_chosen.end(),
                           [&](const auto& chosen) { return chosen.second.member == &member; });
    }

    /// What the set is missing without a file that can't be read.
    QString missingSlot(const FamilyMember& member) const {
        for (const auto& use : tableRow(member.kind).uses) {
            if (use && !m_chosen.contains(use->slot)) {
                return u", so the material has no "_s + title(use->slot) + u" texture"_s;
            }
        }
        return {};
    }

    UnusedFile secondChoice(const FamilyMember& member) const {
        const auto& map = member.file.name.map;
        if (map && map->tile) {
            return {member.file.path, UnusedReason::tile, u"UDIM tiles are not supported"_s};
        }
        const MapUse use = *tableRow(member.kind).uses.front();
        const SlotCandidate& chosen = m_chosen.at(use.slot);
        const QString reason = chooseForSlot(chosen, {&member, use}, m_rules.preference).reason;
        return {member.file.path, UnusedReason::secondChoice,
                fileName(chosen.member->file.path) + u" is used instead, "_s + reason};
    }

    const TextureFamily& m_family;
    const TextureRules& m_rules;
    std::map<TextureSlotKind, SlotCandidate> m_chosen;
};

void sortByPath(std::vector<UnusedFile>& unused) {
    std::stable_sort(unused.begin(), unused.end(),
                     [](const UnusedFile& left, const UnusedFile& right) { return left.path < right.path; });
}

}  // namespace

MatchedTextures matchTextures(const TextureFolder& folder, const TextureRules& rules) {
    MatchedTextures matched;
    const TextureFamilies families = groupTextures(folder, rules.words);
    for (const TextureFamily& family : families.families) {
        FamilyMatch match(family, rules);
        const TextureSet set = match.set(fileName(folder.path));
        if (!set.files.empty()) {
            matched.sets.push_back(set);
        }
        match.addUnused(matched.unused);
    }
    for (const NamedFile& file : families.others) {
        matched.unused.push_back(withoutSlot(file));
    }
    sortByPath(matched.unused);
    return matched;
}

BaseColors findBaseColors(const TextureFolder& folder, const TextureRules& rules) {
    BaseColors colors;
    const TextureFamilies families = groupTextures(folder, rules.words);
    for (const TextureFamily& family : families.families) {
        FamilyMatch match(family, rules);
        const TextureSet set = match.set({});
        QSet<QString> known;
        if (const auto base = set.files.find(TextureSlotKind::baseColor); base != set.files.end()) {
            colors.files += base->second.path;
            known.insert(base->second.path);
        }
        match.addUnused(colors.unused);
        for (const auto& [slot, input] : set.files) {
            if (!known.contains(input.path)) {
                known.insert(input.path);
                colors.unused.push_back({input.path, UnusedReason::notBaseColor,
                                         u"it is the "_s + title(slot) + u" texture of a material"_s});
            }
        }
    }
    for (const NamedFile& file : families.others) {
        if (file.isRead) {
            colors.files += file.path;
        } else {
            colors.unused.push_back(withoutSlot(file));
        }
    }
    colors.files.sort();
    sortByPath(colors.unused);
    return colors;
}

}  // namespace quarlin
