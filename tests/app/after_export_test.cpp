#include "accessible_tree.h"
#include "ui/controls/link_button.h"
#include "window_fixture.h"

#include <QDesktopServices>
#include <QDir>
#include <QToolTip>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Stands in for the desktop's file manager.
class FileManager : public QObject {
    Q_OBJECT

public:
    FileManager() { QDesktopServices::setUrlHandler(u"file"_s, this, "open"); }
    ~FileManager() override { QDesktopServices::unsetUrlHandler(u"file"_s); }
    Q_DISABLE_COPY_MOVE(FileManager)

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }
};

class AfterAnExport : public WindowFixture {
protected:
    FileManager files;

    void exportMaterial(const QString& name = u"Brick.png"_s) {
        load(TextureSlotKind::baseColor, name);
        click(withText<QAbstractButton>(page(), u"Base Size"_s));
        chooser.folder = folder.url();
        materials.exportMaterialSet();
        settle();
    }
    LinkButton& link() const { return child<LinkButton>(page(), u"lastExport"_s); }
    QAction& openEntry() const {
        QAction* shown = nullptr;
        auto* menu = qobject_cast<QMenu*>(entry(u"File"_s, u"Quit"_s).associatedObjects().constFirst());
        for (QAction* action : menu->actions()) {
            if (plain(action->text()) == u"Open Export Folder"_s && action->isVisible()) {
                EXPECT_EQ(shown, nullptr);
                shown = action;
            }
        }
        return *shown;
    }
    QUrl brick() const { return QUrl::fromLocalFile(folder.path(u"Brick"_s)); }
    static QUrl plainUrl(const QUrl& url) { return url.adjusted(QUrl::StripTrailingSlash); }
};

TEST_F(AfterAnExport, TheNameOfTheFolderIsALinkToIt) {
    EXPECT_FALSE(link().isVisible());
    exportMaterial();
    EXPECT_TRUE(link().isVisible());
    EXPECT_EQ(link().text(), u"Brick"_s);
    EXPECT_EQ(QDir(link().toolTip()), QDir(folder.path(u"Brick"_s)));
    click(link());
    ASSERT_EQ(files.opened.size(), 1);
    EXPECT_EQ(plainUrl(files.opened[0]), brick());
}

TEST_F(AfterAnExport, TheLinkWorksFromTheKeyboard) {
    exportMaterial();
    link().setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(link().hasFocus());
    press(link(), Qt::Key_Return);
    press(link(), Qt::Key_Space);
    EXPECT_EQ(files.opened.size(), 2);
}

TEST_F(AfterAnExport, TheLinkIsOneForAssistiveTechnology) {
    exportMaterial();
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&link());
    EXPECT_EQ(accessible->role(), QAccessible::Link);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Brick"_s);
    EXPECT_EQ(accessible->text(QAccessible::Description), link().toolTip());
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(files.opened.size(), 1);
}

TEST_F(AfterAnExport, TheMenuOpensTheFolderOfTheToolThatIsShown) {
    EXPECT_FALSE(openEntry().isEnabled());
    exportMaterial();
    EXPECT_TRUE(openEntry().isEnabled());
    openEntry().trigger();
    ASSERT_EQ(files.opened.size(), 1);
    EXPECT_EQ(plainUrl(files.opened[0]), brick());
    showTool(StudioTool::normalGenerator);
    EXPECT_FALSE(openEntry().isEnabled());
    press(window, Qt::Key_O, {Qt::ControlModifier | Qt::ShiftModifier});
    EXPECT_EQ(files.opened.size(), 1);
    loadSource(u"Stone.png"_s);
    click(withText<QAbstractButton>(page(), u"Base Size"_s));
    chooser.folder = folder.url();
    maps.exportSet();
    settle();
    press(window, Qt::Key_O, {Qt::ControlModifier | Qt::ShiftModifier});
    ASSERT_EQ(files.opened.size(), 2);
    EXPECT_EQ(plainUrl(files.opened[1]), QUrl::fromLocalFile(folder.path(u"Stone"_s)));
}

TEST_F(AfterAnExport, AFolderThatIsGoneIsReported) {
    exportMaterial();
    ASSERT_TRUE(QDir(folder.path(u"Brick"_s)).removeRecursively());
    click(link());
    EXPECT_EQ(files.opened.size(), 0);
    EXPECT_TRUE(materials.logLines().constFirst().contains(u"Open failed: "_s));
}

TEST_F(AfterAnExport, AResetTakesTheLinkAway) {
    exportMaterial();
    materials.reset();
    settle();
    EXPECT_FALSE(link().isVisible());
    EXPECT_FALSE(openEntry().isEnabled());
}

}  // namespace

#include "after_export_test.moc"
