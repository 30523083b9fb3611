#include "model/normal_generator_settings.h"

#include "model/material_name.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString NormalGeneratorSettings::defaultMaterialName() { return u"VOREK_Normal"_s; }

QString NormalGeneratorSettings::safeMaterialName() const {
    return quarlin::safeMaterialName(materialName, defaultMaterialName());
}

}  // namespace quarlin
