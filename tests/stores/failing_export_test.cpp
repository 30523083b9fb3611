// What both stores log when an export fails on the disk.

#include "limited_writing.h"
#include "model/output_resolution.h"
#include "model/texture_slot_kind.h"
#include "rename_hook.h"
#include "store_fixture.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

struct MaterialTool {
    using Store = MaterialStore;
    static constexpr const char* first = "Brick_BaseColor.png";
    static constexpr const char* second = "Brick_ORM.png";
    static constexpr const char* last = "Brick_SL_PBR_notes.txt";
    static void load(Store& store, const QUrl& file) {
        store.importTexture(file, TextureSlotKind::baseColor);
    }
    static void exportInto(Store& store) { store.exportMaterialSet(); }
};

struct MapTool {
    using Store = NormalGeneratorStore;
    static constexpr const char* first = "Brick_basecolor.png";
    static constexpr const char* second = "Brick_normal.png";
    static constexpr const char* last = "Brick_maps_notes.txt";
    static void load(Store& store, const QUrl& file) { store.importSourceTexture(file); }
    static void exportInto(Store& store) { store.exportSet(); }
};

template <typename Tool>
class FailingExport : public StoreFixture<typename Tool::Store> {
protected:
    FailingExport() {
        QDir().mkpath(out);
        this->chooser.folder = QUrl::fromLocalFile(out);
        Tool::load(this->store, this->folder.texture(u"Brick.png"_s));
        auto settings = this->store.settings();
        settings.outputResolution = OutputResolution::matchBase;
        this->store.setSettings(settings);
        before = this->store.logLines();
    }

    void runExport() { Tool::exportInto(this->store); }

    /// Expects one new line in the log, and no other change.
    void expectFailure(const QString& description) {
        EXPECT_EQ(this->newest(), this->stamped(u"Export failed: "_s + description));
        EXPECT_EQ(this->store.logLines().mid(1), before);
        EXPECT_EQ(this->store.lastExportURL(), std::nullopt);
        EXPECT_TRUE(this->store.canExport());
    }
    void expectNextExportToWork() {
        runExport();
        EXPECT_EQ(this->newest(), this->stamped(u"Wrote "_s + QLatin1String(Tool::last)));
        EXPECT_NE(this->store.lastExportURL(), std::nullopt);
    }
    QStringList filesOfSet() const {
        return QDir(out + u"/Brick"_s)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    const QString out = this->folder.path(u"out"_s);
    QStringList before;
};

using Tools = testing::Types<MaterialTool, MapTool>;
TYPED_TEST_SUITE(FailingExport, Tools);

TYPED_TEST(FailingExport, OntoAFullDiskNamesTheFile) {
    {
        const FullDisk disk(0);
        this->runExport();
    }
    this->expectFailure(u"Could not write PNG: "_s + QLatin1String(TypeParam::first));
    EXPECT_EQ(this->filesOfSet(), QStringList());
    this->expectNextExportToWork();
}

TYPED_TEST(FailingExport, OntoADiskThatGetsFullKeepsWhatWasWritten) {
    {
        std::optional<FullDisk> disk;
        const RenameHook hook({}, [&](int count) {
            if (count == 1) {
                disk.emplace(0);
            }
        });
        this->runExport();
    }
    this->expectFailure(u"Could not write PNG: "_s + QLatin1String(TypeParam::second));
    EXPECT_EQ(this->filesOfSet(), QStringList{QLatin1String(TypeParam::first)});
    this->expectNextExportToWork();
}

TYPED_TEST(FailingExport, IntoAReadOnlyFolderTellsWhy) {
    const QByteArray path = QFile::encodeName(this->out);
    ASSERT_EQ(chmod(QFile::encodeName(this->folder.url().toLocalFile()).constData(), 0755), 0);
    ASSERT_EQ(chmod(path.constData(), 0555), 0);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.works());
        this->runExport();
    }
    this->expectFailure(u"Could not create folder: Brick (Permission denied)"_s);
    ASSERT_EQ(chmod(path.constData(), 0755), 0);
    this->expectNextExportToWork();
}

TYPED_TEST(FailingExport, IntoAFolderThatVanishesNamesTheFile) {
    {
        const RenameHook hook({}, [&](int count) {
            if (count == 1) {
                QDir(this->out).removeRecursively();
            }
        });
        this->runExport();
    }
    this->expectFailure(u"Could not create PNG image: "_s + QLatin1String(TypeParam::second));
    EXPECT_FALSE(QDir(this->out).exists());
    this->expectNextExportToWork();
}

TYPED_TEST(FailingExport, OverAFolderInThePlaceOfTheNotesNamesThem) {
    ASSERT_TRUE(QDir().mkpath(this->out + u"/Brick/"_s + QLatin1String(TypeParam::last)));
    this->runExport();
    this->expectFailure(u"Could not write file: "_s + QLatin1String(TypeParam::last));
    ASSERT_TRUE(QDir(this->out + u"/Brick"_s).rmdir(QLatin1String(TypeParam::last)));
    this->expectNextExportToWork();
}

TYPED_TEST(FailingExport, OfANameTooLongTellsWhy) {
    auto settings = this->store.settings();
    settings.materialName = QString(256, u'n');
    this->store.setSettings(settings);
    this->runExport();
    this->expectFailure(u"Could not create folder: "_s + settings.materialName + u" (File name too long)"_s);
    settings.materialName = u"Brick"_s;
    this->store.setSettings(settings);
    this->expectNextExportToWork();
}

}  // namespace
