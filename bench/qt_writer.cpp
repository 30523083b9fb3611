// qt_writer SIZE RAW OUT: writes raw RGBA bytes with Qt, in the format that the suffix of OUT names.

#include <QFile>
#include <QImage>

#include <cstdio>
#include <span>

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (argc < 4) {
        std::fputs("usage: qt_writer SIZE RAW OUT\n", stderr);
        return 2;
    }
    const int size = QByteArray(arguments[1]).toInt();
    QFile file(QString::fromLocal8Bit(arguments[2]));
    if (!file.open(QIODevice::ReadOnly)) {
        return 1;
    }
    const QByteArray bytes = file.readAll();
    const QImage image(reinterpret_cast<const uchar*>(bytes.constData()), size, size,
                       QImage::Format_RGBA8888);
    return image.save(QString::fromLocal8Bit(arguments[3])) ? 0 : 1;
}
