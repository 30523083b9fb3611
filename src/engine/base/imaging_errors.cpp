#include "engine/base/imaging_errors.h"

#include "engine/base/texture_processor_error.h"
#include "imaging/decode/decode_error.h"
#include "imaging/files/file_error.h"

namespace quarlin {

namespace {

TextureProcessorError engineError(FileKind kind, const FileError& error) {
    switch (error.action()) {
        case FileError::Action::read:
            return TextureProcessorError::cannotReadImage(error.file());
        case FileError::Action::create:
            return kind == FileKind::text ? TextureProcessorError::cannotWriteText(error.file())
                                          : TextureProcessorError::cannotCreatePNG(error.file());
        case FileError::Action::write:
            break;
    }
    return kind == FileKind::text ? TextureProcessorError::cannotWriteText(error.file())
                                  : TextureProcessorError::cannotWritePNG(error.file());
}

}  // namespace

void throwEngineError(FileKind kind) {
    try {
        throw;
    } catch (const FileError& error) {
        std::throw_with_nested(engineError(kind, error));
    } catch (const DecodeError& error) {
        std::throw_with_nested(TextureProcessorError::cannotReadImage(error.file()));
    }
}

}  // namespace quarlin
