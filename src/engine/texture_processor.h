#pragma once

#include "engine/base/row_progress.h"
#include "imaging/base/pixel_size.h"

#include <QColorSpace>

#include <cstdint>
#include <map>
#include <optional>

class QByteArray;
class QImage;
class QString;
class QUrl;

namespace quarlin {

enum class GeneratedMap;
enum class MaterialImage;
enum class TextureChannel;
enum class TextureSlotKind;
struct ConversionSettings;
struct ExportResult;
struct NormalGeneratorSettings;
struct NormalOutputNames;
struct NormalOutputs;
struct OutputNames;
struct PixelImage;
struct TextureAsset;

using TextureMap = std::map<TextureSlotKind, TextureAsset>;
using OutputPreviews = std::map<MaterialImage, QImage>;
using NormalPreviews = std::map<GeneratedMap, QImage>;

/// The engine of both tools: image files in, pixels, maps and documents, files out.
///
/// It keeps no state: every operation takes values and returns values, runs to its end on the thread that
/// calls it (spreading rows and files over all cores inside), and may be called from several threads at once.
/// Operations that can fail throw `TextureProcessorError`, or `FileSystemError` where noted. Sizes are in
/// pixels, bytes 0...255, fractions 0...1. Arithmetic is double precision in the order in which the formulas
/// are written, each product rounded before it is added.
///
/// The formulas themselves are plain functions: engine/base/channels.h, engine/material/normal_conditioning.h
/// and engine/reference. Exports and previews run faster forms of them, which give the same bytes.
class TextureProcessor {
public:
    // ---- Image files

    /// The color space of every `PixelImage`.
    const QColorSpace colorSpace{QColorSpace::SRgb};
    /// The memory form of every `PixelImage`: premultiplied alpha last (1), bytes in the order R, G, B, A
    /// (16384).
    static constexpr std::uint32_t bitmapInfo = 16385;

    /// Decodes the file at `url` for a texture card. Throws `cannotReadImage`.
    TextureAsset loadAsset(const QUrl& url) const;

    /// The same without the pixels: only the size of the image is read. An export loads such textures itself,
    /// a few rows at a time. If one of them turns out to be unreadable, the export throws `cannotReadImage`
    /// and has written nothing, nor created the folder. Throws `cannotReadImage`.
    TextureAsset openAsset(const QUrl& url) const;

    /// `openAsset` for a texture of data: its samples count as they are, without its color profile or gamma.
    TextureAsset openDataAsset(const QUrl& url) const;
    /// `openDataAsset` for one channel of the file, in gray. Its samples are packed as they are, not as
    /// luminance. A color channel of a picture with transparent pixels can only be read from a PNG with 8
    /// bits per channel and from a Targa file, as others do not keep the colors of transparent pixels; else
    /// the rows throw `cannotReadImage`.
    TextureAsset openAsset(const QUrl& url, TextureChannel channel) const;

    /// Reads the file of a texture that was only opened to its end. Throws `cannotReadImage`.
    void expectReadable(const TextureAsset& asset) const;

    /// Decodes the file at `url` at its own size: PNG, JPEG, TIFF, BMP, GIF, HEIC, WebP, AVIF or Targa, the
    /// first image of several, converted to 8-bit sRGB with premultiplied alpha; orientation tags are
    /// ignored. Throws `cannotReadImage` for anything that is not a whole, intact image in a regular file.
    QImage loadCGImage(const QUrl& url) const;

    /// Decodes the file at `url` and stretches it to `width` x `height` pixels. At the file's own size the
    /// result equals the decoded image. Throws `cannotReadImage`, and `cannotCreateBitmap` for a size that is
    /// not positive or too large to allocate.
    PixelImage renderImage(const QUrl& url, std::int64_t width, std::int64_t height) const;

    /// The same for a loaded texture, which is decoded again only when its file has changed since.
    PixelImage renderImage(const TextureAsset& asset, std::int64_t width, std::int64_t height) const;

    /// The image as an on-screen image. Throws `cannotCreatePNG(urlForError)` when size and byte count do not
    /// describe an image.
    QImage makeCGImage(const PixelImage& image, const QUrl& urlForError) const;

    /// `makeCGImage` for previews; a failure names "Preview.png".
    QImage makeNSImage(const PixelImage& image) const;

    /// Writes an 8-bit RGBA PNG, tagged sRGB, with straight alpha, replacing a file of that name. Either the
    /// whole file is written or the old one stays. Throws `cannotCreatePNG` when `image` is not an image or
    /// the file can't be opened for writing, `cannotWritePNG` when it can't be completed.
    void writePNG(const PixelImage& image, const QUrl& url) const;

    // ---- Material sets

    /// The output size: square for a fixed resolution, else the base texture's own.
    static PixelSize resolvedOutputSize(const TextureAsset& base, const ConversionSettings& settings);

    /// Packs occlusion (red), roughness (green) and metallic (blue) into one opaque image of `width` x
    /// `height`. A slot without a texture takes its default; gloss is inverted, a default never is. Of
    /// several textures that fail, the first in the order occlusion, roughness, metallic is reported. Throws
    /// as `renderImage`.
    PixelImage makeORM(const TextureMap& textures, const ConversionSettings& settings, std::int64_t width,
                       std::int64_t height) const;

    /// The preview tiles of a material, computed as the export computes its files, at most `longestSide` on
    /// the long side.
    OutputPreviews buildPreviews(const TextureMap& textures, const ConversionSettings& settings,
                                 std::int64_t longestSide = previewSide) const;

    /// An image of a material set at the size of the export, with the pixels that the export writes. A null
    /// image when the texture that it is made from is not loaded, or when `progress` ends the work. Throws as
    /// `renderImage`.
    QImage makeMaterialImage(MaterialImage image, const TextureMap& textures,
                             const ConversionSettings& settings, const RowProgress& progress) const;

    /// Writes a material set into a folder, named after the material, in `parentDirectory`. Files written
    /// before a failure stay. Throws `missingBaseColor`, the errors of reading and writing, and
    /// `FileSystemError` when the folder can't be created.
    ExportResult exportMaterialSet(const TextureMap& textures, const ConversionSettings& settings,
                                   const QUrl& parentDirectory) const;

    // ---- Generated sets

    /// The whole generator: the source at `width` x `height` and every map of it.
    NormalOutputs makeGeneratedNormalOutputs(const QUrl& sourceURL, const NormalGeneratorSettings& settings,
                                             std::int64_t width, std::int64_t height) const;

    /// The preview tiles of the generator, at most `longestSide` on the long side; none without a source.
    NormalPreviews buildNormalPreviews(const std::optional<TextureAsset>& source,
                                       const NormalGeneratorSettings& settings,
                                       std::int64_t longestSide = previewSide) const;

    /// An image of a generated set at the size of the export, with the pixels that the export writes. A null
    /// image when `progress` ends the work. Throws as `renderImage`.
    QImage makeGeneratedMap(GeneratedMap map, const TextureAsset& source,
                            const NormalGeneratorSettings& settings, const RowProgress& progress) const;

    /// Writes a generated set as `exportMaterialSet` writes a material set. Throws `missingNormalSource` when
    /// there is no source.
    ExportResult exportGeneratedNormalSet(const std::optional<TextureAsset>& source,
                                          const NormalGeneratorSettings& settings,
                                          const QUrl& parentDirectory) const;

    /// The long side of a preview tile is at most this.
    static constexpr std::int64_t previewSide = 512;

    /// The size of a preview tile: at most `previewSide` on the long side, the short side truncated but at
    /// least 1.
    static PixelSize previewSize(PixelSize size);

    // ---- Documents

    /// The glTF 2.0 document of a material set; `hasNormal`: its normal map was exported.
    static QByteArray makeGLTFData(const OutputNames& names, const ConversionSettings& settings,
                                   bool hasNormal);

    /// The notes of a material set.
    static QString makeNotes(const OutputNames& names, const ConversionSettings& settings,
                             const TextureMap& textures, bool hasNormal);

    /// The glTF 2.0 document of a generated set. It always names the ORM file.
    static QByteArray makeGeneratedGLTFData(const NormalOutputNames& names,
                                            const NormalGeneratorSettings& settings);

    /// The notes of a generated set.
    static QString makeNormalNotes(const NormalOutputNames& names, const NormalGeneratorSettings& settings,
                                   const TextureAsset& source);
};

}  // namespace quarlin
