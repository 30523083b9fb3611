#include "color_truth.h"
#include "imaging/pixels/pixel_image.h"

namespace quarlin {

namespace {

using Matrix = std::array<Color, 3>;

Color product(const Matrix& matrix, const Color& vector) {
    Color result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            result[row] += matrix[row][column] * vector[column];
        }
    }
    return result;
}

Matrix inverted(const Matrix& m) {
    const auto cofactor = [&](std::size_t row, std::size_t column) {
        const std::size_t r1 = (row + 1) % 3;
        const std::size_t r2 = (row + 2) % 3;
        const std::size_t c1 = (column + 1) % 3;
        const std::size_t c2 = (column + 2) % 3;
        return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
    };
    const double determinant = m[0][0] * cofactor(0, 0) + m[0][1] * cofactor(0, 1) + m[0][2] * cofactor(0, 2);
    Matrix result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            result[column][row] = cofactor(row, column) / determinant;
        }
    }
    return result;
}

/// From light to CIE XYZ: the columns are the primaries, as bright as it takes for their sum to be D65.
Matrix toXYZ(const Primaries& primaries) {
    const Color white{0.3127 / 0.3290, 1, (1 - 0.3127 - 0.3290) / 0.3290};
    Matrix matrix{};
    for (std::size_t primary = 0; primary < 3; ++primary) {
        const auto [x, y] = primaries.chromaticities[primary];
        matrix[0][primary] = x / y;
        matrix[1][primary] = 1;
        matrix[2][primary] = (1 - x - y) / y;
    }
    const Color brightness = product(inverted(matrix), white);
    for (Color& row : matrix) {
        for (std::size_t primary = 0; primary < 3; ++primary) {
            row[primary] *= brightness[primary];
        }
    }
    return matrix;
}

}  // namespace

Color inSRGB(const Primaries& primaries, const Color& light) {
    return product(inverted(toXYZ(srgbPrimaries)), product(toXYZ(primaries), light));
}

testing::AssertionResult rendersNear(const QUrl& file, int width, int height,
                                     const std::function<Color(int x, int y)>& expected, double tolerance) {
    const PixelImage image = rendered(file);
    if (image.width != width || image.height != height) {
        return testing::AssertionFailure() << "size " << image.width << 'x' << image.height;
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const fixtures::Rgba pixel = pixelAt(image, x, y);
            const Color truth = expected(x, y);
            for (std::size_t channel = 0; channel < 3; ++channel) {
                if (std::abs(pixel[channel] - truth[channel]) > tolerance || pixel[3] != 255) {
                    return testing::AssertionFailure()
                           << "pixel " << x << ',' << y << " channel " << channel << ": expected "
                           << truth[channel] << ", found " << +pixel[channel] << " at alpha " << +pixel[3];
                }
            }
        }
    }
    return testing::AssertionSuccess();
}

}  // namespace quarlin
