#pragma once

#include "ui/viewer/map_pyramid.h"
#include "ui/viewer/map_source.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace quarlin {

/// Makes maps on a thread of its own, one at a time. Only the map that was asked for last is of interest:
/// work on another one is ended.
class MapLoader : public QObject {
    Q_OBJECT

public:
    explicit MapLoader(QObject* parent = nullptr);
    ~MapLoader() override;

    /// Starts to make a map of `rows` rows.
    void load(const ShownMapWork& work, int rows);

    /// Ends the work; nothing more is reported.
    void cancel();

    bool isBusy() const { return m_job != nullptr; }

Q_SIGNALS:
    /// `percent` of the rows are done.
    void progressed(int percent);
    void loaded(std::shared_ptr<const MapPyramid> map);
    /// The map could not be made; `reason` is for the user.
    void failed(const QString& reason);

private:
    struct Job;
    void finish(const std::shared_ptr<Job>& job);

    QThreadPool m_thread;
    std::shared_ptr<Job> m_job;
};

}  // namespace quarlin
