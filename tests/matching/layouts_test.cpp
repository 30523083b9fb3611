// Folders as texture libraries and programs ship them: see the files in layouts/.

#include "layout_file.h"

#include "matching/texture_set.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

class Layouts : public testing::TestWithParam<LayoutFile> {
protected:
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Folder Name"_s);

    FoundTextures found(const QStringList& files) const {
        EXPECT_TRUE(QDir().mkpath(path));
        for (const QString& name : files) {
            QFile file(path + u'/' + name);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        }
        return findTextures(path, {});
    }
};

QMap<QString, QString> inputsOf(const TextureSet& set) {
    QMap<QString, QString> inputs;
    for (const auto& [slot, input] : set.files) {
        const QString channel = input.channel ? u':' + rawValue(*input.channel) : QString();
        inputs.insert(rawValue(slot) + channel, QFileInfo(input.path).fileName());
    }
    return inputs;
}

TEST_P(Layouts, AreMatched) {
    const LayoutFile& layout = GetParam();
    const FoundTextures textures = found(layout.files());
    ASSERT_EQ(textures.folders.size(), 1U);
    const MatchedTextures matched = matchTextures(textures.folders.front(), {});
    QMap<QString, const TextureSet*> sets;
    for (const TextureSet& set : matched.sets) {
        sets.insert(set.material, &set);
    }
    QStringList wanted;
    for (const LayoutFile::Material& material : layout.materials) {
        wanted += material.name;
    }
    wanted.sort();
    ASSERT_EQ(sets.keys(), wanted);
    for (const LayoutFile::Material& material : layout.materials) {
        const TextureSet& set = *sets[material.name];
        EXPECT_EQ(inputsOf(set), material.inputs) << material.name.toStdString();
        EXPECT_EQ(set.roughnessIsGloss, material.flags.contains(u"gloss"_s)) << material.name.toStdString();
        EXPECT_EQ(set.normalIsDirectX, material.flags.contains(u"directx"_s)) << material.name.toStdString();
        EXPECT_EQ(!set.refusal.isEmpty(), material.flags.contains(u"refused"_s))
            << material.name.toStdString();
    }
    QMap<QString, QString> unused;
    for (const UnusedFile& file : matched.unused) {
        unused.insert(QFileInfo(file.path).fileName(), rawValue(file.reason));
    }
    EXPECT_EQ(unused, layout.unused);
}

TEST_P(Layouts, LoseNoFile) {
    const LayoutFile& layout = GetParam();
    const MatchedTextures matched = matchTextures(found(layout.files()).folders.front(), {});
    QStringList files;
    for (const TextureSet& set : matched.sets) {
        for (const auto& [slot, input] : set.files) {
            files += QFileInfo(input.path).fileName();
        }
    }
    for (const UnusedFile& file : matched.unused) {
        files += QFileInfo(file.path).fileName();
        EXPECT_FALSE(file.text.isEmpty());
    }
    files.removeDuplicates();
    files.sort();
    EXPECT_EQ(files, layout.files());
}

INSTANTIATE_TEST_SUITE_P(Of, Layouts, testing::ValuesIn(layoutFiles()),
                         [](const auto& tested) { return "L" + tested.param.name.toStdString(); });

}  // namespace
