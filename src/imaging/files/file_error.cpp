#include "imaging/files/file_error.h"

#include <cerrno>

namespace quarlin {

const char* FileError::what() const noexcept {
    return m_action == Action::read ? "a file can't be read" : "a file can't be written";
}

FileProblem fileProblem(int errorNumber) {
    switch (errorNumber) {
        case ENOENT:
        case ENOTDIR:
            return FileProblem::notFound;
        case EACCES:
        case EPERM:
            return FileProblem::noPermission;
        case EROFS:
            return FileProblem::readOnly;
        case ENAMETOOLONG:
            return FileProblem::nameTooLong;
        case EISDIR:
            return FileProblem::isFolder;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return FileProblem::noSpace;
        default:
            return FileProblem::other;
    }
}

}  // namespace quarlin
