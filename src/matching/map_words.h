#pragma once

#include "matching/map_kind.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace quarlin {

/// How much a word says about a file.
enum class Evidence {
    /// A single letter: it counts only in a family that other files make clear.
    letter,
    /// A word that also describes surfaces, such as "metal": it counts only beside other files of the same
    /// material.
    ambiguous,
    /// It counts alone.
    clear,
};

/// Which way the green of a normal map points.
enum class GreenDirection { unknown, openGL, directX };

/// What a word says that names a map.
struct MapWord {
    MapKind kind = MapKind::baseColor;
    Evidence evidence = Evidence::clear;
    GreenDirection green = GreenDirection::unknown;
};

/// The words that name maps: those that are common in texture libraries, and words of the user's own, which
/// come first.
class MapWords {
public:
    /// The common words.
    MapWords();

    /// The meaning of `word`, which is in lower case and without separators.
    std::optional<MapWord> find(const QString& word) const;

    /// Adds a word of the user, in any case and with any separators. Returns false if no letter or number is
    /// left of it.
    bool add(const QString& word, const MapWord& meaning);

    /// The common words that mean `kind`, in the order of the table.
    static QStringList common(MapKind kind);

private:
    QHash<QString, MapWord> m_words;
};

}  // namespace quarlin
