#pragma once

#include "engine/generator/generated_maps.h"
#include "engine/texture_processor_error.h"
#include "imaging/base/image_size.h"
#include "imaging/pixels/pixel_image.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"
#include "model/normal_preview_kind.h"
#include "model/output_names.h"
#include "model/output_preview_kind.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <QByteArray>
#include <QColorSpace>
#include <QImage>
#include <QString>
#include <QUrl>

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <tuple>
#include <vector>

namespace quarlin {

using TextureMap = std::map<TextureSlotKind, TextureAsset>;
using OutputPreviews = std::map<OutputPreviewKind, QImage>;
using NormalPreviews = std::map<NormalPreviewKind, QImage>;

/// A height field: one value in 0...1 per pixel, row by row from the top; larger is higher.
using HeightField = std::vector<double, UninitializedAllocator<double>>;

/// The engine of both tools: image files in, pixels, maps and documents, files out.
///
/// It keeps no state: every operation takes values and returns values, runs to its end on the thread that
/// calls it (spreading rows and files over all cores inside), and may be called from several threads at once.
/// Operations that can fail throw `TextureProcessorError`, or `FileSystemError` where said. Sizes are in
/// pixels, bytes 0...255, fractions 0...1. Arithmetic is double precision in the order in which the formulas
/// are written, each product rounded before it is added.
///
/// The small operations on values and fields are plain loops that read like their formulas, and are what the
/// results are defined by. The exports and previews run faster forms of them, which give the same bytes.
class TextureProcessor {
public:
    // ---- Image input and output (image_io.cpp)
    // ----------------------------------------------------------------

    /// The color space of every `PixelImage`.
    const QColorSpace colorSpace{QColorSpace::SRgb};
    /// The memory form of every `PixelImage`: premultiplied alpha last (1), bytes in the order R, G, B, A
    /// (16384).
    static constexpr std::uint32_t bitmapInfo = 16385;

    /// Decodes the file at `url` for a texture card. Throws `cannotReadImage`.
    TextureAsset loadAsset(const QUrl& url) const;

    /// Decodes the file at `url` at its own size: PNG, JPEG, TIFF, BMP, GIF, HEIC, WebP or AVIF, the first
    /// image of several, converted to 8-bit sRGB with premultiplied alpha; orientation tags are ignored.
    /// Throws `cannotReadImage` for anything that is not a whole, intact image in a regular file.
    QImage loadCGImage(const QUrl& url) const;

    /// Decodes the file at `url` and stretches it to `width` x `height` pixels. At the file's own size the
    /// result is the decoded image to the byte. Throws `cannotReadImage`, and `cannotCreateBitmap` for a size
    /// that is not positive or too large to allocate.
    PixelImage renderImage(const QUrl& url, std::int64_t width, std::int64_t height) const;

    /// The same for a loaded texture, which is decoded again only when its file has changed since.
    PixelImage renderImage(const TextureAsset& asset, std::int64_t width, std::int64_t height) const;

    /// The image as an on-screen image of `width` x `height` pixels. Throws `cannotCreatePNG(urlForError)`
    /// when size and byte count do not describe an image.
    QImage makeCGImage(const PixelImage& image, const QUrl& urlForError) const;

    /// `makeCGImage` for previews; a failure names "Preview.png".
    QImage makeNSImage(const PixelImage& image) const;

    /// Writes an 8-bit RGBA PNG, tagged sRGB, with straight alpha, replacing a file of that name. Either the
    /// whole file is written or the old one stays. Throws `cannotCreatePNG` when the image is none or the
    /// file can't be opened for writing, `cannotWritePNG` when it can't be completed.
    void writePNG(const PixelImage& image, const QUrl& url) const;

    // ---- Channels and ORM (channels.cpp)
    // ----------------------------------------------------------------------

    /// `value * 255`, rounded to the nearest integer with halves away from zero, clamped to 0...255.
    static std::uint8_t byteFromUnit(double value);

    /// The Rec. 709 luminance of the pixel at byte `offset`, truncated, and subtracted from 255 when
    /// `inverted`; `fallback` as it is when there is no image. White gives 254: its three products sum to
    /// just below 255.
    static std::uint8_t grayscale(const PixelImage* image, std::size_t offset, std::uint8_t fallback,
                                  bool inverted);

    /// Sets the pixel at byte `offset` to opaque gray.
    static void writeGray(std::uint8_t value, std::span<std::uint8_t> pixels, std::size_t offset);

    /// The larger of `min` and (the smaller of `max` and `value`).
    static double clamp(double value, double min, double max);

    /// The output size: square for a fixed resolution, else the base texture's own.
    static PixelSize resolvedOutputSize(const TextureAsset& base, const ConversionSettings& settings);
    static PixelSize resolvedOutputSize(std::int64_t baseWidth, std::int64_t baseHeight,
                                        OutputResolution resolution);

    /// Packs occlusion (red), roughness (green) and metallic (blue) into one opaque image of `width` x
    /// `height`. A slot without a texture takes its default; gloss is inverted, a default never is. The
    /// textures are reported on in the order occlusion, roughness, metallic. Throws as `renderImage`.
    PixelImage makeORM(const TextureMap& textures, const ConversionSettings& settings, std::int64_t width,
                       std::int64_t height) const;

    // ---- Normal conditioning (normal_conditioning.cpp)
    // --------------------------------------------------------

    /// Sets every alpha byte to 255 and leaves the premultiplied color as it is.
    static void normalizeAlpha(PixelImage& image);

    /// Replaces every green byte by 255 minus it.
    static void flipGreenChannel(PixelImage& image);

    // ---- Height field (height_field.cpp)
    // ----------------------------------------------------------------------

    /// The luminance of `image` as heights, inverted and smoothed as `settings` say.
    static HeightField smoothedHeightValues(const PixelImage& image, const NormalGeneratorSettings& settings);

    /// One pass of an unweighted 3 x 3 mean; at the edges the window is cut off. `values` has `width *
    /// height` elements.
    static HeightField boxBlur(std::span<const double> values, std::int64_t width, std::int64_t height);

    /// The field as an opaque gray image.
    static PixelImage heightImage(std::span<const double> values, std::int64_t width, std::int64_t height);

    /// The height at (`x`, `y`), read from the nearest edge pixel when that lies outside.
    static double sampleHeight(std::span<const double> values, std::int64_t width, std::int64_t height,
                               std::int64_t x, std::int64_t y);

    // ---- Normal synthesis (normal_synthesis.cpp)
    // --------------------------------------------------------------

    /// The tangent-space normal map of a height field: central differences times the strength (at least
    /// 0.05), normalized. A height that rises to the right gives red below 128.
    static PixelImage normalImage(std::span<const double> values, std::int64_t width, std::int64_t height,
                                  const NormalGeneratorSettings& settings);

    /// (x, y, z) divided by its length, or by 0.0001 if that is larger.
    static std::tuple<double, double, double> normalized(double x, double y, double z);

    /// The byte for a component in -1...1: -1 gives 0, 0 gives 128, 1 gives 255.
    static std::uint8_t byteFromSignedUnit(double value);

    // ---- Surface maps (surface_maps.cpp)
    // ----------------------------------------------------------------------

    /// Roughness, gloss, metallic, occlusion and ORM estimated from an image and its height field.
    static GeneratedSurfaceMaps generatedSurfaceMaps(const PixelImage& source,
                                                     std::span<const double> heightValues,
                                                     const NormalGeneratorSettings& settings);

    /// Six times the largest height difference to a neighbor in the 3 x 3 window, clamped to 0...1.
    static double localHeightContrast(std::span<const double> values, std::int64_t width, std::int64_t height,
                                      std::int64_t x, std::int64_t y);

    /// The cubic step from 0 at `edge0` to 1 at `edge1`; a hard step where the edges are equal.
    static double smoothStep(double edge0, double edge1, double value);

    // ---- Documents (documents.cpp)
    // ----------------------------------------------------------------------------

    /// The glTF 2.0 document of a material set; `hasNormal` says whether its normal map was exported.
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

    // ---- Exports (material_export.cpp, generated_export.cpp)
    // --------------------------------------------------

    /// Writes a material set into a folder, named after the material, in `parentDirectory`. Files written
    /// before a failure stay. Throws `missingBaseColor`, the errors of reading and writing, and
    /// `FileSystemError` when the folder can't be created.
    ExportResult exportMaterialSet(const TextureMap& textures, const ConversionSettings& settings,
                                   const QUrl& parentDirectory) const;

    /// Writes a generated set, likewise. Throws `missingNormalSource` when there is no source.
    ExportResult exportGeneratedNormalSet(const std::optional<TextureAsset>& source,
                                          const NormalGeneratorSettings& settings,
                                          const QUrl& parentDirectory) const;

    /// The whole generator: the source at `width` x `height` and every map of it.
    NormalOutputs makeGeneratedNormalOutputs(const QUrl& sourceURL, const NormalGeneratorSettings& settings,
                                             std::int64_t width, std::int64_t height) const;

    // ---- Previews (material_previews.cpp, generated_previews.cpp)
    // ---------------------------------------------

    /// The size of a preview: at most 512 on the long side, the short side truncated but at least 1.
    static PixelSize previewSize(PixelSize size);

    /// The tiles of the material tool, computed as the export computes its files.
    OutputPreviews buildPreviews(const TextureMap& textures, const ConversionSettings& settings) const;

    /// The tiles of the generator; none without a source.
    NormalPreviews buildNormalPreviews(const std::optional<TextureAsset>& source,
                                       const NormalGeneratorSettings& settings) const;
};

}  // namespace quarlin
