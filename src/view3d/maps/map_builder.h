#pragma once

#include "view3d/maps/material_maps.h"

#include <QObject>
#include <QThreadPool>

#include <cstdint>
#include <optional>

namespace quarlin {

/// Computes maps beside the main thread, one set at a time, in the form that the graphics card takes. Only
/// the newest work counts: what is asked for while other work runs is started after it, and replaces what was
/// waiting.
class MapBuilder : public QObject {
    Q_OBJECT

public:
    explicit MapBuilder(QObject* parent = nullptr);
    /// Waits for the work under way.
    ~MapBuilder() override;

    void build(SceneMapWork work);
    /// Drops the work under way and waiting: `built` is not emitted for it.
    void cancel();

    bool isBuilding() const { return m_isRunning || m_waiting.has_value(); }

Q_SIGNALS:
    /// The newest work is done. Work that fails emits nothing: whoever asked has the previews.
    void built(const quarlin::SceneTextures& maps);

private:
    void start(SceneMapWork work);
    void finish(std::uint64_t number, const std::optional<SceneTextures>& maps);

    QThreadPool m_thread;
    bool m_isRunning = false;
    std::optional<SceneMapWork> m_waiting;
    /// Of the newest work.
    std::uint64_t m_number = 0;
};

}  // namespace quarlin
