#include "cli/batch/failure_details.h"

#include "engine/base/texture_processor_error.h"
#include "imaging/decode/decode_error.h"
#include "imaging/files/file_error.h"

#include <exception>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

struct Cause {
    QString code;
    QString reason;
};

Cause causeOf(const FileError& error) {
    switch (error.problem()) {
        case FileProblem::notFound:
            return {u"notFound"_s, u"not found"_s};
        case FileProblem::noPermission:
            return {u"noPermission"_s, u"no permission"_s};
        case FileProblem::isFolder:
            return {u"isFolder"_s, u"is a folder"_s};
        case FileProblem::notAFile:
            return {u"notAFile"_s, u"is not a regular file"_s};
        case FileProblem::changed:
            return {u"changed"_s, u"was written to while it was read"_s};
        case FileProblem::noSpace:
            return {u"noSpace"_s, u"the disk is full, or a limit on file sizes is reached"_s};
        case FileProblem::readOnly:
            return {u"readOnly"_s, u"the disk is read-only"_s};
        case FileProblem::nameTooLong:
            return {u"nameTooLong"_s, u"the name is too long"_s};
        case FileProblem::other:
            break;
    }
    return {u"systemError"_s, u"the system reports an error"_s};
}

Cause causeOf(const DecodeError& error) {
    const QString place =
        error.place() == DecodePlace::beginning ? u"found when it was opened"_s : u"found in its pixels"_s;
    switch (error.problem()) {
        case DecodeProblem::notAnImage:
            return {u"notAnImage"_s, u"is not an image that Quarlin reads"_s};
        case DecodeProblem::tooLarge:
            return {u"tooLarge"_s, u"too large for the memory"_s};
        case DecodeProblem::damaged:
            break;
    }
    return {u"damaged"_s, u"damaged or incomplete, or of an unknown kind ("_s + place + u')'};
}

/// What an error of the engine was thrown for; nothing if it has no cause.
Cause causeOf(const EngineError& error) {
    try {
        std::rethrow_if_nested(error);
    } catch (const FileError& cause) {
        return causeOf(cause);
    } catch (const DecodeError& cause) {
        return causeOf(cause);
    } catch (...) {
        return {};
    }
    return {};
}

QString codeOf(const TextureProcessorError& error) {
    switch (error.kind()) {
        case TextureProcessorError::Case::missingBaseColor:
            return u"missingBaseColor"_s;
        case TextureProcessorError::Case::cannotCreateBitmap:
            return u"cannotCreateBitmap"_s;
        default:
            return u"systemError"_s;
    }
}

}  // namespace

FailureDetails failureDetails(const EngineError& error) {
    const Cause cause = causeOf(error);
    if (const auto* processing = dynamic_cast<const TextureProcessorError*>(&error)) {
        return {cause.code.isEmpty() ? codeOf(*processing) : cause.code, processing->file().toLocalFile(),
                cause.reason};
    }
    if (const auto* folder = dynamic_cast<const FileSystemError*>(&error)) {
        return {u"cannotCreateFolder"_s, folder->file().toLocalFile(), {}};
    }
    return {u"systemError"_s, {}, cause.reason};
}

}  // namespace quarlin
