#pragma once

#include <QString>
#include <QUrl>

#include <exception>
#include <string>

namespace quarlin {

/// A failure with a text for the user.
class EngineError : public std::exception {
public:
    /// The text for the user, naming files by their last path component.
    virtual QString errorDescription() const = 0;
    const char* what() const noexcept override { return "Quarlin engine error"; }
};

/// The failures of the engine's own operations.
class TextureProcessorError : public EngineError {
public:
    enum class Case {
        cannotReadImage,
        cannotCreatePNG,
        cannotWritePNG,
        cannotWriteText,
        missingBaseColor,
        missingDiffuseTexture,
        missingNormalSource,
        cannotCreateBitmap,
    };

    static TextureProcessorError cannotReadImage(const QUrl& file) { return {Case::cannotReadImage, file}; }
    static TextureProcessorError cannotCreatePNG(const QUrl& file) { return {Case::cannotCreatePNG, file}; }
    static TextureProcessorError cannotWritePNG(const QUrl& file) { return {Case::cannotWritePNG, file}; }
    static TextureProcessorError cannotWriteText(const QUrl& file) { return {Case::cannotWriteText, file}; }
    static TextureProcessorError missingBaseColor() { return {Case::missingBaseColor, {}}; }
    static TextureProcessorError missingDiffuseTexture() { return {Case::missingDiffuseTexture, {}}; }
    static TextureProcessorError missingNormalSource() { return {Case::missingNormalSource, {}}; }
    static TextureProcessorError cannotCreateBitmap() { return {Case::cannotCreateBitmap, {}}; }

    Case kind() const { return m_kind; }
    /// The file that the failure is about; empty for the cases without one.
    const QUrl& file() const { return m_file; }
    QString errorDescription() const override;

    bool operator==(const TextureProcessorError& other) const {
        return m_kind == other.m_kind && m_file == other.m_file;
    }

private:
    TextureProcessorError(Case kind, QUrl file) : m_kind(kind), m_file(std::move(file)) {}

    Case m_kind;
    QUrl m_file;
};

/// A failure of the file system: an export folder that can't be created.
class FileSystemError : public EngineError {
public:
    FileSystemError(QUrl file, std::string reason) : m_file(std::move(file)), m_reason(std::move(reason)) {}

    const QUrl& file() const { return m_file; }
    QString errorDescription() const override;

private:
    QUrl m_file;
    std::string m_reason;
};

/// The text for the user when an operation ends with `std::bad_alloc`.
QString outOfMemoryDescription();

}  // namespace quarlin
