// What is sent to assistive technology.

#include "model/conversion_settings.h"
#include "model/material_set.h"
#include "model/texture_slot_kind.h"
#include "ui/panels/tool_preview_panel.h"
#include "viewer/viewer_fixture.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Hears what events of one type say, in their order.
class Heard {
public:
    Heard(QAccessible::Event type, QAccessible::Text text) : m_type(type), m_text(text) { listener = this; }
    ~Heard() { listener = nullptr; }
    Q_DISABLE_COPY_MOVE(Heard)

    const QStringList& texts() const { return m_texts; }

    void hear(const QAccessibleEvent& event) {
        if (event.type() == m_type) {
            m_texts << event.accessibleInterface()->text(m_text);
        }
    }

    static inline Heard* listener = nullptr;

private:
    QAccessible::Event m_type;
    QAccessible::Text m_text;
    QStringList m_texts;
};

}  // namespace

/// Takes the place of Qt's function in this program. Qt's drops the events as long as no screen reader runs.
void QAccessible::updateAccessibility(QAccessibleEvent* event) {
    if (Heard::listener != nullptr) {
        Heard::listener->hear(*event);
    }
}

namespace {

class AnnouncedFailures : public StoreFixture<MaterialStore> {
protected:
    void failToLoad() {
        store.importTexture(folder.noTexture(u"b.png"_s), TextureSlotKind::occlusion);
        settle();
    }

    ViewWindow window{makePreviewPanel(store, u"photo"_s), QSize(380, 300)};
};

TEST_F(AnnouncedFailures, AreSentAsAlerts) {
    const Heard alerts(QAccessible::Alert, QAccessible::Name);
    store.buildPreview();
    settle();
    EXPECT_EQ(alerts.texts(), QStringList());
    failToLoad();
    failToLoad();
    const QString alert = u"Load failed: Could not read image: b.png"_s;
    EXPECT_EQ(alerts.texts(), QStringList({alert, alert}));
}

class AnnouncedPixels : public MaterialViewerFixture {
protected:
    AnnouncedPixels() {
        ConversionSettings settings;
        settings.outputResolution = OutputResolution::matchBase;
        store.setSettings(settings);
        store.importTexture(folder.save(u"Brick.png"_s, placeImage(700, 600)), TextureSlotKind::baseColor);
        settle();
    }
};

TEST_F(AnnouncedPixels, AreSentAsTheyAreProbed) {
    open(MaterialImage::baseColor);
    const Heard descriptions(QAccessible::DescriptionChanged, QAccessible::Description);
    pointAt({12, 300});
    press(canvas, Qt::Key_G);
    press(canvas, Qt::Key_Right, Qt::ShiftModifier);
    const QPoint middle = canvas.probedPixel()->place;
    const auto pixel = [](int x, int y, const QColor& value) {
        return u"Pixel %1, %2: red %3, green %4, blue %5, alpha 255"_s.arg(x)
            .arg(y)
            .arg(value.red())
            .arg(value.green())
            .arg(value.blue());
    };
    ASSERT_EQ(descriptions.texts().size(), 3);
    EXPECT_EQ(descriptions.texts()[0], pixel(12, 300, {12, 300 % 256, 7}));
    EXPECT_EQ(descriptions.texts()[1], u"Green Channel"_s);
    EXPECT_EQ(descriptions.texts()[2],
              pixel(middle.x(), middle.y(), {middle.x() % 256, middle.y() % 256, 7}));
}

}  // namespace
