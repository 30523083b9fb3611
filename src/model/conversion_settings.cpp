#include "model/conversion_settings.h"

#include "model/material_name.h"
#include "model/material_set.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString ConversionSettings::defaultMaterialName() { return u"VOREK_PBR_Material"_s; }

QString ConversionSettings::safeMaterialName() const {
    return quarlin::safeMaterialName(materialName, defaultMaterialName());
}

bool haveSameImages(const ConversionSettings& a, const ConversionSettings& b) {
    ConversionSettings others = a;
    others.materialName = b.materialName;
    for (const SetFile<ConversionSettings>& file : EnumerationTable<MaterialFile>::rows) {
        if (file.isExported != nullptr) {
            others.*file.isExported = b.*file.isExported;
        }
    }
    return others == b;
}

}  // namespace quarlin
