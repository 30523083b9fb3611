#include "model/conversion_settings.h"

#include "model/material_name.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString ConversionSettings::defaultMaterialName() { return u"VOREK_PBR_Material"_s; }

QString ConversionSettings::safeMaterialName() const {
    return quarlin::safeMaterialName(materialName, defaultMaterialName());
}

}  // namespace quarlin
