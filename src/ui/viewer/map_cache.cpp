#include "ui/viewer/map_cache.h"

#include <algorithm>
#include <utility>

namespace quarlin {

std::shared_ptr<const MapPyramid> MapCache::find(const Key& key) const {
    const auto entry =
        std::find_if(m_maps.begin(), m_maps.end(), [&](const Entry& kept) { return kept.key == key; });
    return entry == m_maps.end() ? nullptr : entry->map;
}

void MapCache::insert(const Key& key, std::shared_ptr<const MapPyramid> map) {
    m_maps.remove_if([&](const Entry& kept) { return kept.key == key; });
    qsizetype left = m_capacity - map->bytes();
    m_maps.push_front({key, std::move(map)});
    auto kept = std::next(m_maps.begin());
    while (kept != m_maps.end() && kept->map->bytes() <= left) {
        left -= kept->map->bytes();
        ++kept;
    }
    m_maps.erase(kept, m_maps.end());
}

}  // namespace quarlin
