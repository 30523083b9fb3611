#pragma once

#include "stores/tool_store.h"
#include "ui/panels/export_folder.h"
#include "ui/panels/observe.h"
#include "ui/panels/preview_panel.h"

#include <map>
#include <vector>

namespace quarlin {

/// The tiles for `previews`, in the order of the kinds; a kind without a picture has none.
template <typename Kind>
std::vector<PreviewTileContent> previewTiles(const std::map<Kind, QImage>& previews) {
    std::vector<PreviewTileContent> tiles;
    for (const Kind kind : allCases<Kind>()) {
        if (const auto preview = previews.find(kind); preview != previews.end()) {
            tiles.push_back({title(kind), subtitle(kind), preview->second});
        }
    }
    return tiles;
}

/// A preview panel that shows what `store` publishes. `store` must outlive it.
template <typename Store>
PreviewPanel* makePreviewPanel(Store& store, const QString& emptySymbol) {
    auto* panel = new PreviewPanel(emptySymbol);
    observe(panel, store, [panel, &store] {
        panel->setTiles(previewTiles(store.previews()));
        panel->setOutdated(store.hasOutdatedPreviews());
        panel->setLastExport(store.lastExportURL());
        panel->setLogLines(store.logLines());
    });
    // Later, as the redraw that shows the line of the log.
    QObject::connect(&store, &ToolStore::failed, panel, &PreviewPanel::showFailure, Qt::QueuedConnection);
    QObject::connect(panel, &PreviewPanel::exportFolderRequested, &store,
                     [&store] { openExportFolder(store); });
    return panel;
}

}  // namespace quarlin
