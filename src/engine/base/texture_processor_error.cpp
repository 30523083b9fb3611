#include "engine/base/texture_processor_error.h"

#include "imaging/files/file_names.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QString TextureProcessorError::errorDescription() const {
    switch (m_kind) {
        case Case::cannotReadImage:
            return u"Could not read image: "_s + lastPathComponent(m_file);
        case Case::cannotCreatePNG:
            return u"Could not create PNG image: "_s + lastPathComponent(m_file);
        case Case::cannotWritePNG:
            return u"Could not write PNG: "_s + lastPathComponent(m_file);
        case Case::cannotWriteText:
            return u"Could not write file: "_s + lastPathComponent(m_file);
        case Case::missingBaseColor:
            return u"Base Color texture is required."_s;
        case Case::missingDiffuseTexture:
            return u"Diffuse/Base texture is required."_s;
        case Case::missingNormalSource:
            return u"Source texture is required."_s;
        case Case::cannotCreateBitmap:
            return u"Could not create bitmap buffer."_s;
    }
    return {};
}

QString outOfMemoryDescription() { return u"Not enough memory."_s; }

QString FileSystemError::errorDescription() const {
    return u"Could not create folder: "_s + lastPathComponent(m_file) + u" ("_s +
           QString::fromStdString(m_reason) + u')';
}

}  // namespace quarlin
