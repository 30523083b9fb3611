#pragma once

#include <QByteArray>

#include <optional>

namespace quarlin {

/// The parts of a binary glTF file.
struct GlbFile {
    QByteArray json;
    /// The buffer that is part of the file; empty if there is none.
    QByteArray buffer;
};

/// Takes the bytes of a .glb of version 2 apart; nothing if they are not one, or are cut off.
std::optional<GlbFile> readGLB(const QByteArray& bytes);

}  // namespace quarlin
