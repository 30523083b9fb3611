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
#include <type_traits>
#include <utility>

class QMimeData;

namespace quarlin {

/// The published properties of a store. `inputs` are the textures of a material, or the source of a generated
/// set.
enum class StoreProperty { inputs, settings, previews, log, lastExport };

/// What the state objects of both tools share: the announcement of changes, the log, the folder of the last
/// export, file choosers, drops, and running the engine.
///
/// A store belongs to the main thread. Its operations run to their end before they return and report each
/// failure as one log line.
class ToolStore : public QObject {
    Q_OBJECT

public:
    /// What the tool has done, newest first, at most `ActivityLog::capacity` lines.
    const QStringList& logLines() const { return m_log.lines(); }

    /// The folder that received the last successful export.
    const std::optional<QUrl>& lastExportURL() const { return m_lastExportURL; }
    bool hasExport() const { return m_lastExportURL.has_value(); }

    /// Adds `message` to the log as the reason why an action has failed.
    void reportFailure(const QString& message);

Q_SIGNALS:
    /// `property` is about to change; its old value can still be read.
    void willChange(StoreProperty property);

    /// An action has failed. `message`, without a time, is the newest line of the log.
    void failed(const QString& message);

    /// Before and after a run of the engine, during which the main thread is blocked.
    void workStarted();
    void workFinished();

protected:
    /// `chooser` must outlive the store; `hint` is the log's first line.
    ToolStore(Chooser& chooser, Clock clock, const QString& hint);

    const TextureProcessor& processor() const { return m_processor; }

    /// Announces the change of `property`, then gives `place`, which holds it, its new value.
    template <typename Value>
    void publish(StoreProperty property, Value& place, std::type_identity_t<Value> value) {
        Q_EMIT willChange(property);
        place = std::move(value);
    }

    /// Adds `message` with the time as the first line of the log.
    void appendLog(const QString& message);

    /// Resets the state that both tools share: no last export, and a log with the one line "Inputs cleared.".
    void resetShared();

    /// Runs the engine. A failure is logged as "`action` failed: " and its description. Returns true on
    /// success.
    bool attempt(const QString& action, const std::function<void()>& work);

    /// Asks for one image file and calls `import` with it unless the user cancels.
    void chooseImage(const QString& title, const std::function<void(const QUrl&)>& import);

    /// Calls `import` with the first dropped file from the event loop, unless the store is destroyed before.
    /// Returns whether `data` holds a file.
    bool importLater(const QMimeData& data, std::function<void(const QUrl&)> import);

    /// Asks for a folder, calls `write` to export into it and logs what was written.
    void exportWith(const std::function<ExportResult(const QUrl&)>& write);

    /// The name of the material once `file` is loaded: the file's name without extension while `current` is
    /// still `defaultName`, else `current`.
    static QString adoptedName(const QString& current, const QString& defaultName, const QUrl& file);

private:
    Chooser& m_chooser;
    TextureProcessor m_processor;
    ActivityLog m_log;
    std::optional<QUrl> m_lastExportURL;
};

}  // namespace quarlin
