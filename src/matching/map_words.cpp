#include "matching/map_words.h"

#include <array>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

struct CommonWord {
    QLatin1StringView text;
    MapKind kind;
    Evidence evidence = Evidence::clear;
};

/// "map" after a word, resolutions and the like are recognized separately: see `readTextureName`.
constexpr std::array commonWords{
    CommonWord{"basecolor"_L1, MapKind::baseColor},
    CommonWord{"basecolour"_L1, MapKind::baseColor},
    CommonWord{"basecol"_L1, MapKind::baseColor},
    CommonWord{"basemap"_L1, MapKind::baseColor},
    CommonWord{"albedo"_L1, MapKind::baseColor},
    CommonWord{"albedotransparency"_L1, MapKind::baseColor},
    CommonWord{"diffuse"_L1, MapKind::baseColor},
    CommonWord{"diffusecolor"_L1, MapKind::baseColor},
    CommonWord{"diff"_L1, MapKind::baseColor},
    CommonWord{"dif"_L1, MapKind::baseColor},
    CommonWord{"color"_L1, MapKind::baseColor},
    CommonWord{"colour"_L1, MapKind::baseColor},
    CommonWord{"col"_L1, MapKind::baseColor},
    CommonWord{"coll"_L1, MapKind::baseColor},
    CommonWord{"alphamasked"_L1, MapKind::baseColor},
    CommonWord{"bc"_L1, MapKind::baseColor, Evidence::ambiguous},
    CommonWord{"d"_L1, MapKind::baseColor, Evidence::letter},
    CommonWord{"b"_L1, MapKind::baseColor, Evidence::letter},
    CommonWord{"c"_L1, MapKind::baseColor, Evidence::letter},

    CommonWord{"normal"_L1, MapKind::normal},
    CommonWord{"normals"_L1, MapKind::normal},
    CommonWord{"norm"_L1, MapKind::normal},
    CommonWord{"nrm"_L1, MapKind::normal},
    CommonWord{"nor"_L1, MapKind::normal},
    CommonWord{"nml"_L1, MapKind::normal},
    CommonWord{"n"_L1, MapKind::normal, Evidence::letter},

    CommonWord{"ambientocclusion"_L1, MapKind::occlusion},
    CommonWord{"mixedao"_L1, MapKind::occlusion},
    CommonWord{"occlusion"_L1, MapKind::occlusion},
    CommonWord{"occ"_L1, MapKind::occlusion},
    CommonWord{"ao"_L1, MapKind::occlusion},
    CommonWord{"o"_L1, MapKind::occlusion, Evidence::letter},

    CommonWord{"roughness"_L1, MapKind::roughness},
    CommonWord{"rgh"_L1, MapKind::roughness},
    CommonWord{"rough"_L1, MapKind::roughness, Evidence::ambiguous},
    CommonWord{"r"_L1, MapKind::roughness, Evidence::letter},

    CommonWord{"glossiness"_L1, MapKind::gloss},
    CommonWord{"smoothness"_L1, MapKind::gloss},
    CommonWord{"gloss"_L1, MapKind::gloss, Evidence::ambiguous},
    CommonWord{"g"_L1, MapKind::gloss, Evidence::letter},

    CommonWord{"metallic"_L1, MapKind::metallic, Evidence::ambiguous},
    CommonWord{"metalness"_L1, MapKind::metallic},
    CommonWord{"metallness"_L1, MapKind::metallic},
    CommonWord{"metal"_L1, MapKind::metallic, Evidence::ambiguous},
    CommonWord{"met"_L1, MapKind::metallic, Evidence::ambiguous},
    CommonWord{"m"_L1, MapKind::metallic, Evidence::letter},

    CommonWord{"orm"_L1, MapKind::orm},
    CommonWord{"arm"_L1, MapKind::orm, Evidence::ambiguous},
    CommonWord{"occlusionroughnessmetallic"_L1, MapKind::orm},
    CommonWord{"occlusionroughnessmetalness"_L1, MapKind::orm},
    CommonWord{"aoroughnessmetallic"_L1, MapKind::orm},
    CommonWord{"aoroughmetal"_L1, MapKind::orm},
    CommonWord{"aorm"_L1, MapKind::orm},
    CommonWord{"rma"_L1, MapKind::rma},
    CommonWord{"rmao"_L1, MapKind::rma},
    CommonWord{"rmo"_L1, MapKind::rma},
    CommonWord{"roughnessmetallicao"_L1, MapKind::rma},
    CommonWord{"mrao"_L1, MapKind::mra},
    CommonWord{"mra"_L1, MapKind::mra},
    CommonWord{"mro"_L1, MapKind::mra},
    CommonWord{"metallicroughnessao"_L1, MapKind::mra},
    CommonWord{"rom"_L1, MapKind::rom, Evidence::ambiguous},
    CommonWord{"metallicroughness"_L1, MapKind::metallicRoughness},
    CommonWord{"metalnessroughness"_L1, MapKind::metallicRoughness},
    CommonWord{"metalroughness"_L1, MapKind::metallicRoughness},
    CommonWord{"metalrough"_L1, MapKind::metallicRoughness},
    CommonWord{"ord"_L1, MapKind::occlusionRoughness},
    CommonWord{"ordp"_L1, MapKind::occlusionRoughness},
    CommonWord{"metallicsmoothness"_L1, MapKind::metallicSmoothness},
    CommonWord{"metalsmoothness"_L1, MapKind::metallicSmoothness},
    CommonWord{"metallicgloss"_L1, MapKind::metallicSmoothness},
    CommonWord{"maskmap"_L1, MapKind::maskMap},

    CommonWord{"height"_L1, MapKind::height},
    CommonWord{"displacement"_L1, MapKind::height},
    CommonWord{"disp"_L1, MapKind::height},
    CommonWord{"dsp"_L1, MapKind::height},
    CommonWord{"bump"_L1, MapKind::height},
    CommonWord{"depth"_L1, MapKind::height},
    CommonWord{"parallax"_L1, MapKind::height},
    CommonWord{"h"_L1, MapKind::height, Evidence::letter},
    CommonWord{"specular"_L1, MapKind::specular},
    CommonWord{"specularlevel"_L1, MapKind::specular},
    CommonWord{"specularsmoothness"_L1, MapKind::specular},
    CommonWord{"specularglossiness"_L1, MapKind::specular},
    CommonWord{"spec"_L1, MapKind::specular},
    CommonWord{"spc"_L1, MapKind::specular},
    CommonWord{"reflection"_L1, MapKind::specular},
    CommonWord{"refl"_L1, MapKind::specular},
    CommonWord{"s"_L1, MapKind::specular, Evidence::letter},
    CommonWord{"emissive"_L1, MapKind::emissive},
    CommonWord{"emission"_L1, MapKind::emissive},
    CommonWord{"emit"_L1, MapKind::emissive},
    CommonWord{"e"_L1, MapKind::emissive, Evidence::letter},
    CommonWord{"opacity"_L1, MapKind::opacity},
    CommonWord{"alpha"_L1, MapKind::opacity},
    CommonWord{"transparency"_L1, MapKind::opacity},
    CommonWord{"translucency"_L1, MapKind::otherMap},
    CommonWord{"transmission"_L1, MapKind::otherMap},
    CommonWord{"scattering"_L1, MapKind::otherMap},
    CommonWord{"sss"_L1, MapKind::otherMap},
    CommonWord{"thickness"_L1, MapKind::otherMap},
    CommonWord{"cavity"_L1, MapKind::otherMap},
    CommonWord{"curvature"_L1, MapKind::otherMap},
    CommonWord{"anisotropy"_L1, MapKind::otherMap},
    CommonWord{"sheen"_L1, MapKind::otherMap},
    CommonWord{"idmap"_L1, MapKind::otherMap},
    CommonWord{"mask"_L1, MapKind::otherMap},
    CommonWord{"edge"_L1, MapKind::otherMap, Evidence::ambiguous},
    CommonWord{"fuzz"_L1, MapKind::otherMap, Evidence::ambiguous},
    CommonWord{"combined"_L1, MapKind::otherMap, Evidence::ambiguous},
    CommonWord{"albedosmoothness"_L1, MapKind::colorWithSmoothness},
    CommonWord{"basecolorsmoothness"_L1, MapKind::colorWithSmoothness},
    CommonWord{"diffusesmoothness"_L1, MapKind::colorWithSmoothness},
    CommonWord{"normalbump"_L1, MapKind::normalWithHeight},
    CommonWord{"normalheight"_L1, MapKind::normalWithHeight},
    CommonWord{"preview"_L1, MapKind::preview},
    CommonWord{"thumbnail"_L1, MapKind::preview},
    CommonWord{"thumb"_L1, MapKind::preview},
    CommonWord{"render"_L1, MapKind::preview, Evidence::ambiguous},
};

}  // namespace

MapWords::MapWords() {
    for (const CommonWord& word : commonWords) {
        m_words.insert(word.text, {word.kind, word.evidence});
    }
}

std::optional<MapWord> MapWords::find(const QString& word) const {
    const auto found = m_words.constFind(word);
    return found == m_words.constEnd() ? std::nullopt : std::optional(*found);
}

bool MapWords::add(const QString& word, const MapWord& meaning) {
    QString text;
    for (const QChar character : word) {
        if (character.isLetterOrNumber() || character.isMark() || character.isSurrogate()) {
            text += character;
        }
    }
    m_words.insert(text.toLower(), meaning);
    return !text.isEmpty();
}

QStringList MapWords::common(MapKind kind) {
    QStringList texts;
    for (const CommonWord& word : commonWords) {
        if (word.kind == kind) {
            texts += word.text;
        }
    }
    return texts;
}

}  // namespace quarlin
