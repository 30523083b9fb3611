#include "model/normal_generator_settings.h"

#include "model/generated_set.h"
#include "model/material_name.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString NormalGeneratorSettings::defaultMaterialName() { return u"VOREK_Normal"_s; }

QString NormalGeneratorSettings::safeMaterialName() const {
    return quarlin::safeMaterialName(materialName, defaultMaterialName());
}

bool haveSameImages(const NormalGeneratorSettings& a, const NormalGeneratorSettings& b) {
    NormalGeneratorSettings others = a;
    others.materialName = b.materialName;
    for (const SetFile<NormalGeneratorSettings>& file : EnumerationTable<GeneratedFile>::rows) {
        if (file.isExported != nullptr) {
            others.*file.isExported = b.*file.isExported;
        }
    }
    return others == b;
}

}  // namespace quarlin
