#pragma once

#include "engine/texture_processor.h"
#include "model/export_result.h"
#include "stores/activity_log.h"
#include "stores/chooser.h"

#include <QObject>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>
#include <utility>

class QMimeData;

namespace quarlin {

/// What the state objects of both tools share: how a change is announced, the log, the location of the last
/// export, and the ways to ask for files, take drops and run the engine.
///
/// A store belongs to the main thread. Its operations run to their end before they return and report failures
/// as one log line each.
class ToolStore : public QObject {
    Q_OBJECT

public:
    /// What the tool has done, newest first, at most `ActivityLog::capacity` lines.
    const QStringList& logLines() const { return m_log.lines(); }

    /// The folder that received the last successful export.
    const std::optional<QUrl>& lastExportURL() const { return m_lastExportURL; }

Q_SIGNALS:
    /// A published property is about to change; its old value can still be read.
    void willChange();

    /// The engine is about to run, and the store will not return before it has finished.
    void workStarted();
    void workFinished();

protected:
    /// `chooser` must outlive the store; `hint` is the log's first line.
    ToolStore(Chooser& chooser, Clock clock, const QString& hint);

    const TextureProcessor& processor() const { return m_processor; }

    /// Announces the change of a published property, then makes it.
    template <typename Property>
    void publish(Property& property, Property value) {
        Q_EMIT willChange();
        property = std::move(value);
    }

    /// Puts `message`, behind the time, at the front of the log.
    void appendLog(const QString& message);

    /// Empties the state that both tools share: no last export, and a log of one line that tells of it.
    void resetShared();

    /// Runs the engine. A failure is logged as "`action` failed: " and its description; returns whether there
    /// was none.
    bool attempt(const QString& action, const std::function<void()>& work);

    /// Asks for one image file and hands it to `import` unless the user cancels.
    void chooseImage(const QString& title, const std::function<void(const QUrl&)>& import);

    /// Hands the first dropped file to `import` once control is back in the event loop; dropped too when the
    /// store is gone by then. Returns whether `data` holds a file.
    bool importLater(const QMimeData& data, std::function<void(const QUrl&)> import);

    /// Asks for a folder, lets `write` export into it and logs what was written.
    void exportWith(const std::function<ExportResult(const QUrl&)>& write);

    /// The name that a material takes from `file`: the file's, while `current` is still `untouched`.
    static QString adoptedName(const QString& current, const QString& untouched, const QUrl& file);

private:
    Chooser& m_chooser;
    TextureProcessor m_processor;
    ActivityLog m_log;
    std::optional<QUrl> m_lastExportURL;
};

}  // namespace quarlin
