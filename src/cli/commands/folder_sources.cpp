#include "cli/commands/folder_sources.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "cli/options/texture_options.h"
#include "imaging/files/file_names.h"

namespace quarlin {

using namespace Qt::StringLiterals;

void FolderSources::addOptions(CommandOptions& options) {
    options.push_back(switchOption(u"recursive"_s,
                                   u"also search the folders inside a folder, except that of --output"_s,
                                   m_isRecursive, true));
    options.push_back(switchOption(
        u"keep-tree"_s, u"write each set below --output as its textures are below the searched folder"_s,
        m_keepsTree, true));
    options.push_back(preferOption(m_rules.preference));
    options.push_back(suffixOption(m_rules.words));
    options.push_back(rulesOption(m_rules.words));
    options.push_back(switchOption(u"strict"_s,
                                   u"export nothing if a picture of a folder would be left out that may be "
                                   "missing from a material"_s,
                                   m_isStrict, true));
}

QStringList FolderSources::remarks() {
    QStringList strict;
    for (const auto& row : EnumerationTable<UnusedReason>::rows) {
        if (row.isFailureIfStrict) {
            strict += row.title;
        }
    }
    return {
        u"Every picture of a folder that is not used is reported with its reason. With --strict nothing is "
        "exported if one is left out because of one of these: "_s +
            strict.join(u"; "_s) + u"."_s,
        u"Folders inside a folder that are exported sets are not searched: those with the notes or the "
        ".gltf that Quarlin wrote."_s};
}

std::vector<TextureFolder> FolderSources::search(const QString& path, const QUrl& output,
                                                 BatchPlan& plan) const {
    const Depth depth = m_isRecursive ? Depth::withSubfolders : Depth::folderAlone;
    try {
        FoundTextures found = findTextures(localFile(path).toLocalFile(), {depth, output.toLocalFile()});
        for (const QString& folder : found.exportedSets) {
            plan.unused.push_back({folder, UnusedReason::exportedSet, u"it is an exported set"_s});
        }
        plan.folders += found.searched;
        return std::move(found.folders);
    } catch (const TextureSearchError& error) {
        plan.folders += localFile(path).toLocalFile();
        plan.sets.push_back(refusedJob(path, CommandFailure(u"Load"_s, error.reason()).message()));
        return {};
    }
}

QUrl FolderSources::parentDirectory(const QUrl& output, const TextureFolder& folder) const {
    return m_keepsTree && !folder.relativePath.isEmpty() ? fileIn(output, folder.relativePath) : output;
}

}  // namespace quarlin
