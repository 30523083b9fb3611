#include "view3d/window/scene_module.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>
#include <QRegularExpression>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The sentence for a plugin that can't be loaded; `reason` is the loader's.
QString loadingProblem(const QString& reason) {
    static const QRegularExpression missingLibrary(u"([^ /(]+): cannot open shared object file"_s);
    if (const auto match = missingLibrary.match(reason); match.hasMatch()) {
        return u"The 3D view needs the library %1, which is not installed."_s.arg(match.captured(1));
    }
    return u"The 3D view could not be loaded: %1"_s.arg(reason);
}

}  // namespace

QString sceneModuleFile() {
    const QDir programs(QCoreApplication::applicationDirPath());
    const auto inFolder = [&](const QString& folder) {
        return QDir::cleanPath(programs.filePath(folder + u'/' + QStringLiteral(QUARLIN_SCENE_MODULE)));
    };
    const QString installed = inFolder(QStringLiteral(QUARLIN_MODULE_FOLDER));
    const QString built = inFolder(u"../view3d"_s);
    return !QFileInfo::exists(installed) && QFileInfo::exists(built) ? built : installed;
}

SceneOrProblem loadScene(const QString& file) {
    if (!QFileInfo::exists(file)) {
        return {nullptr, u"The 3D view needs the file %1, which is not installed."_s.arg(
                             QDir::toNativeSeparators(file))};
    }
    QPluginLoader loader(QFileInfo(file).absoluteFilePath());
    if (auto* factory = qobject_cast<SceneFactory*>(loader.instance())) {
        return factory->makeScene();
    }
    return {nullptr, loadingProblem(loader.errorString())};
}

}  // namespace quarlin
