#include "cli/batch/settings_record.h"

#include <type_traits>

namespace quarlin {

namespace {

QByteArray valueText(const QString& value) { return value.toUtf8(); }
QByteArray valueText(double value) { return QByteArray::number(value, 'g', 17); }
QByteArray valueText(int value) { return QByteArray::number(value); }
QByteArray valueText(OutputResolution value) { return rawValue(value).toUtf8(); }

template <typename... Values>
QByteArray joined(const Values&... values) {
    QByteArray text;
    ((text += valueText(values) + ' '), ...);
    return text;
}

}  // namespace

// A structure is taken apart as a whole, so that a new setting can't be forgotten here.

QByteArray settingsRecord(const ConversionSettings& settings) {
    const auto& [name, resolution, flipGreen, isGloss, occlusion, roughness, metallic, gltf, notes] =
        settings;
    return "material " + joined(name, resolution, int{flipGreen}, int{isGloss}, occlusion, roughness,
                                metallic, int{gltf}, int{notes});
}

QByteArray settingsRecord(const NormalGeneratorSettings& settings) {
    const auto& [name, resolution, strength, smoothing, invertHeight, flipGreen, roughnessMin, roughnessMax,
                 metallicStrength, aoStrength, height, roughness, gloss, metallic, ao, orm, gltf, notes] =
        settings;
    return "maps " + joined(name, resolution, strength, smoothing, int{invertHeight}, int{flipGreen},
                            roughnessMin, roughnessMax, metallicStrength, aoStrength, int{height},
                            int{roughness}, int{gloss}, int{metallic}, int{ao}, int{orm}, int{gltf},
                            int{notes});
}

}  // namespace quarlin
