#include "conversion_settings.h"

#include "material_name.h"

namespace quarlin {

QString ConversionSettings::defaultMaterialName() { return QStringLiteral("VOREK_PBR_Material"); }

QString ConversionSettings::safeMaterialName() const {
    return quarlin::safeMaterialName(materialName, defaultMaterialName());
}

}  // namespace quarlin
