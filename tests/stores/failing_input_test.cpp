// What both stores log when a texture fails to load, preview or export.

#include "model/texture_slot_kind.h"
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
    static void load(Store& store, const QUrl& file) {
        store.importTexture(file, TextureSlotKind::baseColor);
    }
    static bool drop(Store& store, const QMimeData& data) {
        return store.acceptDrop(data, TextureSlotKind::baseColor);
    }
    static void exportInto(Store& store) { store.exportMaterialSet(); }
};

struct MapTool {
    using Store = NormalGeneratorStore;
    static void load(Store& store, const QUrl& file) { store.importSourceTexture(file); }
    static bool drop(Store& store, const QMimeData& data) { return store.acceptDrop(data); }
    static void exportInto(Store& store) { store.exportSet(); }
};

template <typename Tool>
class FailingTexture : public StoreFixture<typename Tool::Store> {
protected:
    /// Expects that choosing or dropping the file adds one line to the log and changes nothing else.
    void expectRefused(const QString& name) {
        const QUrl file = QUrl::fromLocalFile(this->folder.path(name));
        const QString line = this->stamped(u"Load failed: Could not read image: "_s + name);
        const QStringList before = this->store.logLines();
        Tool::load(this->store, file);
        EXPECT_EQ(this->newest(), line);
        EXPECT_TRUE(Tool::drop(this->store, *this->dragged({file})));
        this->runEventLoop();
        EXPECT_EQ(this->store.logLines(), QStringList({line, line}) + before);
        EXPECT_FALSE(this->store.canExport());
        EXPECT_TRUE(this->store.previews().empty());
    }
};

using Tools = testing::Types<MaterialTool, MapTool>;
TYPED_TEST_SUITE(FailingTexture, Tools);

TYPED_TEST(FailingTexture, APipeIsRefusedAndNotWaitedFor) {
    ASSERT_EQ(mkfifo(QFile::encodeName(this->folder.path(u"pipe.png"_s)).constData(), 0666), 0);
    this->expectRefused(u"pipe.png"_s);
}

TYPED_TEST(FailingTexture, AFolderIsRefused) {
    ASSERT_TRUE(QDir().mkpath(this->folder.path(u"folder.png"_s)));
    this->expectRefused(u"folder.png"_s);
}

TYPED_TEST(FailingTexture, LinksInACircleAreRefused) {
    const QString link = this->folder.path(u"link.png"_s);
    ASSERT_TRUE(QFile::link(link, link));
    this->expectRefused(u"link.png"_s);
}

TYPED_TEST(FailingTexture, DeletedBeforeAPreviewKeepsTheOldOneAndIsForgottenOnceItIsBack) {
    const QUrl file = this->folder.texture(u"Brick.png"_s);
    TypeParam::load(this->store, file);
    const auto previews = this->store.previews();
    QFile::remove(file.toLocalFile());
    this->store.buildPreview();
    EXPECT_EQ(this->newest(), this->stamped(u"Preview failed: Could not read image: Brick.png"_s));
    EXPECT_EQ(this->store.previews(), previews);
    EXPECT_TRUE(this->store.canExport());
    this->folder.texture(u"Brick.png"_s, 4, 4, Qt::blue);
    this->store.buildPreview();
    EXPECT_TRUE(this->newest().endsWith(u"updated."_s)) << this->newest().toStdString();
    EXPECT_NE(this->store.previews(), previews);
}

TYPED_TEST(FailingTexture, ShortenedBeforeAnExportIsReportedInOneLine) {
    const QUrl file = this->folder.texture(u"Brick.png"_s, 40, 40);
    TypeParam::load(this->store, file);
    const QStringList before = this->store.logLines();
    ASSERT_TRUE(QFile::resize(file.toLocalFile(), 60));
    this->chooser.folder = this->folder.url();
    TypeParam::exportInto(this->store);
    EXPECT_EQ(this->newest(), this->stamped(u"Export failed: Could not read image: Brick.png"_s));
    EXPECT_EQ(this->store.logLines().mid(1), before);
    EXPECT_EQ(this->store.lastExportURL(), std::nullopt);
    EXPECT_TRUE(QDir(this->folder.path(u"Brick"_s)).isEmpty());
}

}  // namespace
