#pragma once

#include <QUrl>

#include <exception>
#include <utility>

namespace quarlin {

/// Why the bytes of a file can't be decoded.
enum class DecodeProblem {
    /// They are not of a format that can be read.
    notAnImage,
    /// They are cut off, contradict themselves, or use something that the format's decoder does not know.
    damaged,
    /// There is not enough memory for the image.
    tooLarge,
};

/// The part of a file in which the problem was found.
enum class DecodePlace { beginning, pixels };

/// The bytes of a file can't be decoded.
class DecodeError : public std::exception {
public:
    explicit DecodeError(DecodeProblem problem, QUrl file = {}, DecodePlace place = DecodePlace::beginning)
        : m_problem(problem), m_file(std::move(file)), m_place(place) {}

    DecodeProblem problem() const { return m_problem; }
    /// The file, if the bytes were read from one.
    const QUrl& file() const { return m_file; }
    DecodePlace place() const { return m_place; }
    const char* what() const noexcept override { return "an image can't be decoded"; }

private:
    DecodeProblem m_problem;
    QUrl m_file;
    DecodePlace m_place;
};

}  // namespace quarlin
