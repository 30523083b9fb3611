// Renders the application's icon.
//   render_icon SVG OUTPUT SIZE...
// OUTPUT is a .png of the first size, or a Windows .ico or macOS .icns with all sizes.

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct RenderedIcon {
    int size;
    QByteArray png;
};

RenderedIcon render(QSvgRenderer& drawing, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    QBuffer buffer;
    // For PNG the quality sets the compression: 0 compresses most.
    image.save(&buffer, "PNG", 0);
    return {size, buffer.data()};
}

/// A directory of sizes and offsets, then the pictures; since Windows Vista these may be PNG files.
QByteArray windowsIcon(const QList<RenderedIcon>& icons) {
    constexpr int headerBytes = 6;
    constexpr int entryBytes = 16;
    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    constexpr quint16 reserved = 0;
    constexpr quint16 typeIcon = 1;
    stream << reserved << typeIcon << static_cast<quint16>(icons.size());
    auto offset = static_cast<quint32>(headerBytes + entryBytes * icons.size());
    for (const RenderedIcon& icon : icons) {
        // A side of 256 is written as 0.
        const auto side = static_cast<quint8>(icon.size % 256);
        constexpr quint8 noPalette = 0;
        constexpr quint16 planes = 1;
        constexpr quint16 bitsPerPixel = 32;
        const auto bytes = static_cast<quint32>(icon.png.size());
        stream << side << side << noPalette << quint8{0} << planes << bitsPerPixel << bytes << offset;
        offset += bytes;
    }
    for (const RenderedIcon& icon : icons) {
        file += icon.png;
    }
    return file;
}

/// The type of the chunk for a PNG of this size; empty if there is none.
QByteArray macosChunkType(int size) {
    switch (size) {
        case 16:
            return "icp4";
        case 32:
            return "icp5";
        case 64:
            return "icp6";
        case 128:
            return "ic07";
        case 256:
            return "ic08";
        case 512:
            return "ic09";
        case 1024:
            return "ic10";
        default:
            return {};
    }
}

QByteArray macosChunk(const QByteArray& type, const QByteArray& data) {
    constexpr int headerBytes = 8;
    QByteArray chunk;
    QDataStream stream(&chunk, QIODevice::WriteOnly);
    stream.writeRawData(type.constData(), static_cast<int>(type.size()));
    stream << static_cast<quint32>(headerBytes + data.size());
    return chunk + data;
}

QByteArray macosIcon(const QList<RenderedIcon>& icons) {
    QByteArray chunks;
    for (const RenderedIcon& icon : icons) {
        const QByteArray type = macosChunkType(icon.size);
        if (!type.isEmpty()) {
            chunks += macosChunk(type, icon.png);
        }
    }
    return macosChunk("icns", chunks);
}

int fail(const char* what, const char* path) {
    std::fprintf(stderr, "render_icon: %s %s\n", what, path);
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs("usage: render_icon SVG OUTPUT SIZE...\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid()) {
        return fail("can't read", argv[1]);
    }
    QList<RenderedIcon> icons;
    for (int index = 3; index < argc; ++index) {
        icons << render(drawing, QByteArray(argv[index]).toInt());
    }
    const QString path = QString::fromLocal8Bit(argv[2]);
    QByteArray contents = icons.constFirst().png;
    if (path.endsWith(u".ico"_s)) {
        contents = windowsIcon(icons);
    } else if (path.endsWith(u".icns"_s)) {
        contents = macosIcon(icons);
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size() || !file.flush()) {
        return fail("can't write", argv[2]);
    }
    return 0;
}
