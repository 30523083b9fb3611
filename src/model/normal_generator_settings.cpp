#include "normal_generator_settings.h"

#include "material_name.h"

namespace quarlin {

QString NormalGeneratorSettings::defaultMaterialName() { return QStringLiteral("VOREK_Normal"); }

QString NormalGeneratorSettings::safeMaterialName() const {
    return quarlin::safeMaterialName(materialName, defaultMaterialName());
}

}  // namespace quarlin
