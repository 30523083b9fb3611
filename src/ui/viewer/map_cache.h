#pragma once

#include "ui/viewer/map_pyramid.h"

#include <QtGlobal>

#include <list>
#include <memory>

namespace quarlin {

/// Keeps the maps that were shown last, as far as they fit into a fixed amount of memory, so that going back
/// to one takes no time.
class MapCache {
public:
    /// Which of a tool's images, and whether its green is flipped.
    struct Key {
        int image = 0;
        bool isFlipped = false;

        bool operator==(const Key&) const = default;
    };

    explicit MapCache(qsizetype capacity) : m_capacity(capacity) {}

    /// A null pointer if the map is not kept.
    std::shared_ptr<const MapPyramid> find(const Key& key) const;

    /// Keeps `map`, and forgets as many of the others as have no room next to it, the oldest first.
    void insert(const Key& key, std::shared_ptr<const MapPyramid> map);

    void clear() { m_maps.clear(); }

private:
    struct Entry {
        Key key;
        std::shared_ptr<const MapPyramid> map;
    };

    qsizetype m_capacity;
    /// Newest first.
    std::list<Entry> m_maps;
};

}  // namespace quarlin
