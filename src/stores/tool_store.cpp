#include "stores/tool_store.h"

#include "imaging/files/file_names.h"
#include "stores/dropped_file.h"
#include "stores/failure.h"

#include <QMetaObject>
#include <QMimeData>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString fileSystemPath(const QUrl& folder) { return folder.adjusted(QUrl::StripTrailingSlash).toLocalFile(); }

}  // namespace

ToolStore::ToolStore(Chooser& chooser, Clock clock, const QString& hint)
    : m_chooser(chooser), m_log(hint, std::move(clock)) {}

void ToolStore::appendLog(const QString& message) {
    const QStringList lines = m_log.linesWith(message);
    Q_EMIT willChange(StoreProperty::log);
    m_log.setLines(lines);
}

void ToolStore::reportFailure(const QString& message) {
    appendLog(message);
    Q_EMIT failed(message);
}

void ToolStore::resetShared() {
    publish(StoreProperty::lastExport, m_lastExportURL, {});
    Q_EMIT willChange(StoreProperty::log);
    m_log.setLines({u"Inputs cleared."_s});
}

bool ToolStore::attempt(const QString& action, const std::function<void()>& work) {
    Q_EMIT workStarted();
    const std::optional<QString> failure = failureOf(work);
    Q_EMIT workFinished();
    if (failure) {
        reportFailure(action + u" failed: "_s + *failure);
    }
    return !failure;
}

void ToolStore::chooseImage(const QString& title, const std::function<void(const QUrl&)>& import) {
    constexpr auto types = allCases<ImageFileType>();
    const auto file = m_chooser.chooseFile({title, u"Use Texture"_s, {types.begin(), types.end()}});
    if (file) {
        import(*file);
    }
}

bool ToolStore::importLater(const QMimeData& data, std::function<void(const QUrl&)> import) {
    const std::optional<QUrl> file = droppedFile(data);
    if (file) {
        // The store is the context of the call: destroying it cancels the call.
        QMetaObject::invokeMethod(
            this, [import = std::move(import), file = *file] { import(file); }, Qt::QueuedConnection);
    }
    return file.has_value();
}

void ToolStore::exportWith(const std::function<ExportResult(const QUrl&)>& write) {
    const auto parent = m_chooser.chooseFolder({u"Choose Export Folder"_s, u"Export Here"_s});
    ExportResult result;
    if (!parent || !attempt(u"Export"_s, [&] { result = write(*parent); })) {
        return;
    }
    publish(StoreProperty::lastExport, m_lastExportURL, result.folderURL);
    appendLog(u"Export complete: "_s + fileSystemPath(result.folderURL));
    for (const QString& name : std::as_const(result.files)) {
        appendLog(u"Wrote "_s + name);
    }
}

QString ToolStore::adoptedName(const QString& current, const QString& defaultName, const QUrl& file) {
    return current == defaultName ? fileStem(file) : current;
}

}  // namespace quarlin
