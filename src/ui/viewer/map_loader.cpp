#include "ui/viewer/map_loader.h"

#include "stores/failure.h"

#include <QMetaObject>

#include <cstdint>
#include <optional>
#include <utility>

namespace quarlin {

/// What the two threads share about one map.
struct MapLoader::Job {
    std::atomic<bool> isCanceled = false;
    /// Written before the job is finished, read after.
    std::shared_ptr<const MapPyramid> map;
    std::optional<QString> failure;
};

MapLoader::MapLoader(QObject* parent) : QObject(parent) { m_thread.setMaxThreadCount(1); }

MapLoader::~MapLoader() {
    cancel();
    m_thread.waitForDone();
}

void MapLoader::load(const ShownMapWork& work, int rows) {
    cancel();
    const auto job = std::make_shared<Job>();
    m_job = job;
    const auto progress = [this, job, rows, shown = 0](std::int64_t done) mutable {
        if (const int percent = static_cast<int>(done * 100 / rows); percent != shown) {
            shown = percent;
            QMetaObject::invokeMethod(
                this,
                [this, job, percent] {
                    if (m_job == job) {
                        Q_EMIT progressed(percent);
                    }
                },
                Qt::QueuedConnection);
        }
        return !job->isCanceled;
    };
    m_thread.start([this, job, work, progress] {
        if (job->isCanceled) {
            return;
        }
        job->failure = failureOf([&] { job->map = std::make_shared<MapPyramid>(work(progress)); });
        QMetaObject::invokeMethod(
            this, [this, job] { finish(job); }, Qt::QueuedConnection);
    });
}

void MapLoader::cancel() {
    if (const auto job = std::exchange(m_job, nullptr)) {
        job->isCanceled = true;
    }
}

void MapLoader::finish(const std::shared_ptr<Job>& job) {
    if (m_job != job) {
        return;
    }
    m_job = nullptr;
    if (job->failure) {
        Q_EMIT failed(*job->failure);
    } else {
        Q_EMIT loaded(job->map);
    }
}

}  // namespace quarlin
