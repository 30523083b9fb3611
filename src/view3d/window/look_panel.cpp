#include "view3d/window/look_panel.h"

#include "model/formatters.h"
#include "ui/controls/segmented_picker.h"
#include "ui/controls/slider_row.h"
#include "ui/controls/stepper_row.h"
#include "ui/display/text_label.h"
#include "ui/layout/group_box.h"
#include "ui/style/metrics.h"

#include <QVBoxLayout>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int groupSpacing = 16;
constexpr int rowSpacing = 12;
constexpr QMargins margins(metrics::standardPadding, metrics::standardPadding, metrics::standardPadding,
                           metrics::standardPadding);

constexpr ValueRange sides{lampSideRange.lowest, lampSideRange.highest, 5, 45};
constexpr ValueRange heights{lampHeightRange.lowest, lampHeightRange.highest, 5, 15};
constexpr ValueRange exposures{exposureRange.lowest, exposureRange.highest, 0.1, 1};

QString degreesLabel(double value) { return Formatters::decimalLabel(value, 0) + u"\u00b0"_s; }
QString stopsLabel(double value) {
    return (value > 0 ? u"+"_s : QString()) + Formatters::decimalLabel(value, 1);
}

}  // namespace

LookPanel::LookPanel(SceneLook& look, QWidget* parent)
    : ScrollPanel(groupSpacing, margins, parent), m_look(look) {
    GroupBox* surface = addGroup(u"Surface"_s);
    addPicker(*surface, u"Shape"_s, &SceneLook::shape);
    addPicker(*surface, u"Show"_s, &SceneLook::content);
    addTiling(*surface);

    GroupBox* light = addGroup(u"Light"_s);
    addSlider(*light, u"Direction"_s, sides, &degreesLabel, &SceneLook::lampSide);
    addSlider(*light, u"Height"_s, heights, &degreesLabel, &SceneLook::lampHeight);
    addSlider(*light, u"Exposure"_s, exposures, &stopsLabel, &SceneLook::exposure);

    GroupBox* backdrop = addGroup(u"Background"_s);
    addPicker(*backdrop, u"Background"_s, &SceneLook::backdrop);
    rows()->addStretch();
    showLook();
}

void LookPanel::showLook() {
    for (const auto& show : m_shows) {
        show();
    }
}

GroupBox* LookPanel::addGroup(const QString& title) {
    auto* group = new GroupBox(title, rowSpacing);
    rows()->addWidget(group);
    return group;
}

template <typename Enum>
void LookPanel::addPicker(GroupBox& group, const QString& label, Enum SceneLook::*field) {
    QStringList titles;
    for (const Enum value : allCases<Enum>()) {
        titles += title(value);
    }
    auto* picker = new SegmentedPicker(label, titles);
    picker->setObjectName(label);
    group.rows()->addWidget(picker);
    connect(picker, &SegmentedPicker::chosen, this, [this, field](int index) {
        m_look.*field = static_cast<Enum>(index);
        Q_EMIT edited();
    });
    m_shows.push_back([this, picker, field] { picker->setCurrentIndex(static_cast<int>(m_look.*field)); });
}

void LookPanel::addSlider(GroupBox& group, const QString& title, const ValueRange& range,
                          std::function<QString(double)> format, double SceneLook::*field) {
    auto* row = new SliderRow(title, range, std::move(format));
    row->setObjectName(title);
    group.rows()->addWidget(row);
    connect(row, &SliderRow::valueEdited, this, [this, field](double value) {
        m_look.*field = value;
        Q_EMIT edited();
    });
    m_shows.push_back([this, row, field] { row->setValue(m_look.*field); });
}

void LookPanel::addTiling(GroupBox& group) {
    auto* row = new StepperRow(u"Tiling"_s, tilingRange.lowest, tilingRange.highest);
    row->setObjectName(u"Tiling"_s);
    group.rows()->addWidget(row);
    connect(row, &StepperRow::valueEdited, this, [this](int value) {
        m_look.tiling = value;
        Q_EMIT edited();
    });
    m_shows.push_back([this, row] { row->setValue(m_look.tiling); });
}

}  // namespace quarlin
