#include "view3d/maps/map_builder.h"

#include <QMetaObject>

#include <exception>
#include <utility>

namespace quarlin {

MapBuilder::MapBuilder(QObject* parent) : QObject(parent) { m_thread.setMaxThreadCount(1); }

MapBuilder::~MapBuilder() { m_thread.waitForDone(); }

void MapBuilder::build(SceneMapWork work) {
    ++m_number;
    if (m_isRunning) {
        m_waiting = std::move(work);
    } else {
        start(std::move(work));
    }
}

void MapBuilder::cancel() {
    ++m_number;
    m_waiting.reset();
}

void MapBuilder::start(SceneMapWork work) {
    m_isRunning = true;
    m_thread.start([this, number = m_number, work = std::move(work)] {
        std::optional<SceneTextures> maps;
        try {
            maps = texturesOf(work());
        } catch (const std::exception&) {
            maps.reset();
        }
        // The thread ends before this object, so it is still there.
        QMetaObject::invokeMethod(
            this, [this, number, maps] { finish(number, maps); }, Qt::QueuedConnection);
    });
}

void MapBuilder::finish(std::uint64_t number, const std::optional<SceneTextures>& maps) {
    m_isRunning = false;
    if (m_waiting) {
        start(*std::exchange(m_waiting, std::nullopt));
    } else if (maps && number == m_number) {
        Q_EMIT built(*maps);
    }
}

}  // namespace quarlin
