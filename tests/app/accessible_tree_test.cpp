#include "accessible_tree.h"
#include "ui/help/help_window.h"
#include "ui/panels/preview_panel.h"
#include "ui/viewer/viewer_window.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class AccessibleTree : public WindowFixture {
protected:
    void expectTree(const QString& name) { expectAccessibleTree(*window.content(), name); }
};

TEST_F(AccessibleTree, OfTheStart) { expectTree(u"start"_s); }

TEST_F(AccessibleTree, OfAMaterial) {
    load(TextureSlotKind::baseColor);
    expectTree(u"material"_s);
}

TEST_F(AccessibleTree, OfGeneratedMaps) {
    showTool(StudioTool::normalGenerator);
    loadSource();
    expectTree(u"generator"_s);
}

TEST_F(AccessibleTree, OfTheViewer) {
    load(TextureSlotKind::normal);
    Q_EMIT window.content()->previewPanel(StudioTool::pbr).tileOpened(1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window.viewer().window()->isBusy(); }, 60000));
    settle();
    expectAccessibleTree(*window.viewer().window(), u"viewer"_s);
}

TEST_F(AccessibleTree, OfTheHelp) {
    entry(u"Help"_s, u"Quarlin Help"_s).trigger();
    settle();
    expectAccessibleTree(*window.help(), u"help"_s);
}

}  // namespace
