#include "layout_file.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace quarlin::tests {

using namespace Qt::StringLiterals;

namespace {

LayoutFile read(const QString& path) {
    LayoutFile layout;
    layout.name = QFileInfo(path).completeBaseName();
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    bool isUnused = false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'#')) {
            continue;
        }
        if (line.startsWith(u'[')) {
            const QString name = line.mid(1, line.indexOf(u']') - 1);
            isUnused = name == u"unused"_s;
            if (!isUnused) {
                const QString flags = line.mid(line.indexOf(u']') + 1);
                layout.materials.push_back({name, flags.split(u' ', Qt::SkipEmptyParts), {}});
            }
            continue;
        }
        const QStringList parts = line.split(u" -> "_s);
        EXPECT_EQ(parts.size(), 2) << line.toStdString();
        layout.lines.insert(parts[0], parts[1]);
        if (isUnused) {
            layout.unused.insert(parts[0], parts[1]);
            continue;
        }
        for (const QString& slot : parts[1].split(u' ')) {
            layout.materials.back().inputs.insert(slot, parts[0]);
        }
    }
    return layout;
}

}  // namespace

QStringList LayoutFile::files() const {
    QStringList all = unused.keys();
    for (const Material& material : materials) {
        all += material.inputs.values();
    }
    all.removeDuplicates();
    all.sort();
    return all;
}

std::vector<LayoutFile> layoutFiles() {
    std::vector<LayoutFile> layouts;
    const QDir folder(QString::fromUtf8(LAYOUTS_PATH));
    for (const QString& name : folder.entryList({u"*.txt"_s}, QDir::Files, QDir::Name)) {
        layouts.push_back(read(folder.filePath(name)));
    }
    return layouts;
}

}  // namespace quarlin::tests
