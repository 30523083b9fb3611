#pragma once

#include <QUrl>

#include <exception>
#include <utility>

namespace quarlin {

/// Why a file can't be read or written.
enum class FileProblem {
    notFound,
    noPermission,
    isFolder,
    /// A pipe, a device, or a location that is not on this machine.
    notAFile,
    /// The file was written to while it was read.
    changed,
    /// The disk is full, or a limit on the size of files or on the space of a user is reached.
    noSpace,
    readOnly,
    nameTooLong,
    other,
};

/// A file can't be read or written.
class FileError : public std::exception {
public:
    enum class Action {
        read,
        /// Open for writing.
        create,
        /// Complete what was opened for writing.
        write,
    };

    FileError(Action action, FileProblem problem, QUrl file)
        : m_action(action), m_problem(problem), m_file(std::move(file)) {}

    Action action() const { return m_action; }
    FileProblem problem() const { return m_problem; }
    const QUrl& file() const { return m_file; }
    const char* what() const noexcept override;

private:
    Action m_action;
    FileProblem m_problem;
    QUrl m_file;
};

/// The problem that the error number of a failed system call stands for.
FileProblem fileProblem(int errorNumber);

}  // namespace quarlin
