#include "texture_processor_error.h"

#include "file_names.h"

namespace quarlin {

QString TextureProcessorError::errorDescription() const {
    switch (m_kind) {
        case Case::cannotReadImage:
            return QStringLiteral("Could not read image: ") + lastPathComponent(m_file);
        case Case::cannotCreatePNG:
            return QStringLiteral("Could not create PNG image: ") + lastPathComponent(m_file);
        case Case::cannotWritePNG:
            return QStringLiteral("Could not write PNG: ") + lastPathComponent(m_file);
        case Case::cannotWriteText:
            return QStringLiteral("Could not write file: ") + lastPathComponent(m_file);
        case Case::missingBaseColor:
            return QStringLiteral("Base Color texture is required.");
        case Case::missingDiffuseTexture:
            return QStringLiteral("Diffuse/Base texture is required.");
        case Case::missingNormalSource:
            return QStringLiteral("Source texture is required.");
        case Case::cannotCreateBitmap:
            return QStringLiteral("Could not create bitmap buffer.");
    }
    return {};
}

QString FileSystemError::errorDescription() const {
    return QStringLiteral("Could not create folder: ") + lastPathComponent(m_file) + QStringLiteral(" (") +
           QString::fromStdString(m_reason) + u')';
}

}  // namespace quarlin
