// draw_light_atlas FILE: writes the light of the studio, filtered for the shaders of the 3D view, to FILE.

#include "view3d/environment/light_atlas.h"

#include <QFile>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: draw_light_atlas FILE\n", stderr);
        return 2;
    }
    const QByteArray atlas = quarlin::makeLightAtlas();
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::WriteOnly) || file.write(atlas) != atlas.size() || !file.flush()) {
        std::fprintf(stderr, "draw_light_atlas: could not write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
