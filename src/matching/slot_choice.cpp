#include "matching/slot_choice.h"

#include <array>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// How well a file fits, by one criterion; the larger number wins.
using Rank = std::int64_t (*)(const SlotCandidate&, const TexturePreference&);

struct Criterion {
    Rank rank;
    /// What is said about the file that wins. It may depend on the preference.
    QString (*text)(const SlotCandidate&, const TexturePreference&);
};

const TextureName& nameOf(const SlotCandidate& candidate) { return candidate.member->file.name; }

GreenDirection greenOf(const SlotCandidate& candidate) {
    const auto& map = nameOf(candidate).map;
    return map ? map->green : GreenDirection::unknown;
}

std::int64_t rankOfSize(const SlotCandidate& candidate, const TexturePreference& preference) {
    const int resolution = nameOf(candidate).resolution;
    if (resolution == 0) {
        return 0;
    }
    constexpr std::int64_t first = std::int64_t{1} << 40;
    if (resolution == preference.resolution) {
        return first;
    }
    return preference.prefersSmaller ? first / 2 - resolution : resolution;
}

std::int64_t rankOfFormat(const SlotCandidate& candidate, const TexturePreference& preference) {
    const QString& extension = candidate.member->file.extension;
    if (!preference.extension.isEmpty() && extension == preference.extension) {
        return 2;
    }
    return isLossless(extension) != preference.prefersLossy ? 1 : 0;
}

std::int64_t rankOfGreen(const SlotCandidate& candidate, const TexturePreference& preference) {
    const GreenDirection wanted =
        preference.prefersDirectX ? GreenDirection::directX : GreenDirection::openGL;
    const GreenDirection green = greenOf(candidate);
    return green == wanted ? 2 : green == GreenDirection::unknown ? 1 : 0;
}

constexpr std::array criteria{
    Criterion{[](const SlotCandidate& candidate, const TexturePreference&) -> std::int64_t {
                  const auto& map = nameOf(candidate).map;
                  return map && map->tile ? 0 : 1;
              },
              [](const SlotCandidate&, const TexturePreference&) { return u"which is in one piece"_s; }},
    Criterion{[](const SlotCandidate& candidate, const TexturePreference&) -> std::int64_t {
                  return candidate.member->isNamed ? 1 : 0;
              },
              [](const SlotCandidate&, const TexturePreference&) { return u"whose name says what it is"_s; }},
    Criterion{[](const SlotCandidate& candidate, const TexturePreference& preference) -> std::int64_t {
                  return candidate.use.channel.has_value() == preference.prefersPacked ? 1 : 0;
              },
              [](const SlotCandidate& candidate, const TexturePreference&) {
                  return candidate.use.channel ? u"which is a packed map"_s : u"which is a map of its own"_s;
              }},
    Criterion{rankOfSize,
              [](const SlotCandidate& candidate, const TexturePreference& preference) {
                  return nameOf(candidate).resolution == preference.resolution
                             ? u"which has the preferred resolution"_s
                         : preference.prefersSmaller ? u"which is smaller"_s
                                                     : u"which is larger"_s;
              }},
    Criterion{rankOfFormat,
              [](const SlotCandidate& candidate, const TexturePreference& preference) {
                  return candidate.member->file.extension == preference.extension
                             ? u"which has the preferred format"_s
                         : preference.prefersLossy ? u"which is lossy"_s
                                                   : u"which is lossless"_s;
              }},
    Criterion{rankOfGreen,
              [](const SlotCandidate& candidate, const TexturePreference&) {
                  switch (greenOf(candidate)) {
                      case GreenDirection::openGL:
                          return u"which is for OpenGL"_s;
                      case GreenDirection::directX:
                          return u"which is for DirectX"_s;
                      case GreenDirection::unknown:
                          break;
                  }
                  return u"which does not name DirectX"_s;
              }},
    Criterion{[](const SlotCandidate& candidate, const TexturePreference& preference) -> std::int64_t {
                  return candidate.use.isGloss == preference.prefersGloss ? 1 : 0;
              },
              [](const SlotCandidate& candidate, const TexturePreference&) {
                  return candidate.use.isGloss ? u"which is gloss"_s : u"which is roughness"_s;
              }},
    Criterion{[](const SlotCandidate& candidate, const TexturePreference&) -> std::int64_t {
                  return nameOf(candidate).version;
              },
              [](const SlotCandidate&, const TexturePreference&) { return u"which is a newer version"_s; }},
    Criterion{
        [](const SlotCandidate& candidate, const TexturePreference&) -> std::int64_t {
            return -nameOf(candidate).variant;
        },
        [](const SlotCandidate&, const TexturePreference&) { return u"which is an earlier variant"_s; }},
};

}  // namespace

SlotChoice chooseForSlot(const SlotCandidate& left, const SlotCandidate& right,
                         const TexturePreference& preference) {
    for (const Criterion& criterion : criteria) {
        const std::int64_t ofLeft = criterion.rank(left, preference);
        const std::int64_t ofRight = criterion.rank(right, preference);
        if (ofLeft != ofRight) {
            const bool isLeft = ofLeft > ofRight;
            return {isLeft, criterion.text(isLeft ? left : right, preference)};
        }
    }
    return {left.member->file.path <= right.member->file.path, u"whose name comes first"_s};
}

}  // namespace quarlin
