#include "cli/batch/planned_files.h"

#include "model/normal_output_names.h"
#include "model/output_names.h"

namespace quarlin {

QStringList plannedFiles(const ConversionSettings& settings, bool hasNormal) {
    const OutputNames names{settings.safeMaterialName()};
    QStringList files;
    for (const MaterialFile file : allCases<MaterialFile>()) {
        if (isWritten(file, settings, hasNormal)) {
            files += names[file];
        }
    }
    return files;
}

QStringList plannedFiles(const NormalGeneratorSettings& settings) {
    const NormalOutputNames names{settings.safeMaterialName()};
    QStringList files;
    for (const GeneratedFile file : allCases<GeneratedFile>()) {
        if (isWritten(file, settings)) {
            files += names[file];
        }
    }
    return files;
}

}  // namespace quarlin
