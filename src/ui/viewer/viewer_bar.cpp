#include "ui/viewer/viewer_bar.h"

#include "model/formatters.h"
#include "ui/controls/button.h"
#include "ui/controls/segmented_picker.h"
#include "ui/display/text_label.h"
#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/viewer/viewer_actions.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int buttonSpacing = 4;
constexpr int groupSpacing = 20;
constexpr int rowSpacing = 8;
constexpr int verticalPadding = 8;
/// Room for the largest percentage.
constexpr int scaleWidth = 52;

QHBoxLayout* rowOf(QWidget* widget) {
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(buttonSpacing);
    return row;
}

}  // namespace

ViewerBar::ViewerBar(ViewerActions& actions, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(metrics::standardPadding, verticalPadding, metrics::standardPadding,
                             verticalPadding);
    rows->setSpacing(rowSpacing);
    rows->addWidget(nameRow(actions));
    rows->addWidget(lookRow(actions));
}

QWidget* ViewerBar::nameRow(ViewerActions& actions) {
    auto* widget = new QWidget;
    QHBoxLayout* row = rowOf(widget);
    row->addWidget(actions.previous.makeToolBarButton());
    row->addWidget(actions.next.makeToolBarButton());
    row->addSpacing(buttonSpacing);
    m_title = new TextLabel({}, TextStyle::headline);
    m_title->setObjectName(u"mapTitle"_s);
    row->addWidget(m_title);
    row->addSpacing(buttonSpacing);
    m_subtitle = new TextLabel({}, TextStyle::callout, TextWeight::secondary);
    m_subtitle->setElided(true);
    row->addWidget(m_subtitle, 1);
    row->addWidget(actions.zoomOut.makeToolBarButton());
    m_scale = new TextLabel({}, TextStyle::callout, TextWeight::secondary);
    m_scale->setObjectName(u"scale"_s);
    m_scale->setAlignment(Qt::AlignCenter);
    m_scale->setFixedWidth(textFrame(scaleWidth));
    row->addWidget(m_scale);
    row->addWidget(actions.zoomIn.makeToolBarButton());
    row->addWidget(actions.fit.makeToolBarButton());
    row->addWidget(actions.showPixels.makeToolBarButton());
    return widget;
}

QWidget* ViewerBar::lookRow(ViewerActions& actions) {
    auto* widget = new QWidget;
    QHBoxLayout* row = rowOf(widget);
    row->setSpacing(groupSpacing);
    row->addWidget(channelPicker(actions));
    auto* tile = new QCheckBox(actions.tile.text());
    tile->setToolTip(u"Show the map three times across and down, to judge its seams (T)"_s);
    connect(tile, &QCheckBox::toggled, &actions.tile, &QAction::setChecked);
    connect(&actions.tile, &QAction::toggled, tile, &QCheckBox::setChecked);
    row->addWidget(tile);
    row->addWidget(m_flip = flipControl(actions));
    row->addStretch(1);
    return widget;
}

SegmentedPicker* ViewerBar::channelPicker(ViewerActions& actions) {
    auto* picker = new SegmentedPicker(u"Channel"_s, {u"RGB"_s, u"R"_s, u"G"_s, u"B"_s, u"A"_s});
    picker->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const std::vector<QAction*>& channels = actions.channels();
    const auto segments = picker->findChildren<QAbstractButton*>();
    for (std::size_t index = 0; index < channels.size(); ++index) {
        QAbstractButton* segment = segments[static_cast<qsizetype>(index)];
        const QString name = channels[index]->text();
        segment->setAccessibleName(name);
        segment->setToolTip(name + u" ("_s + channels[index]->shortcut().toString() + u')');
        connect(channels[index], &QAction::toggled, picker, [picker, index](bool isChosen) {
            if (isChosen) {
                picker->setCurrentIndex(static_cast<int>(index));
            }
        });
    }
    picker->setCurrentIndex(0);
    connect(picker, &SegmentedPicker::chosen, &actions,
            [&actions](int index) { actions.channels()[static_cast<std::size_t>(index)]->setChecked(true); });
    return picker;
}

QWidget* ViewerBar::flipControl(ViewerActions& actions) {
    auto* widget = new QWidget;
    QHBoxLayout* row = rowOf(widget);
    row->setSpacing(rowSpacing);
    row->addWidget(new TextLabel(u"Green"_s, TextStyle::body));
    auto* picker = new SegmentedPicker(u"Green"_s, {u"Before Flip"_s, u"After Flip"_s});
    picker->setObjectName(u"flip"_s);
    picker->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    picker->setToolTip(
        u"Look at the normals before and after flipping green (X). This does not change the "
        "settings"_s);
    picker->setCurrentIndex(0);
    connect(picker, &SegmentedPicker::chosen, &actions.flip, [&actions](int index) {
        if (actions.flip.isChecked() != (index == 1)) {
            actions.flip.trigger();
        }
    });
    connect(&actions.flip, &QAction::toggled, picker,
            [picker](bool isFlipped) { picker->setCurrentIndex(isFlipped ? 1 : 0); });
    row->addWidget(picker);
    return widget;
}

void ViewerBar::setMap(const QString& title, const QString& subtitle) {
    m_title->setText(title);
    m_subtitle->setText(subtitle);
}

void ViewerBar::setScale(double scale) { m_scale->setText(Formatters::percentLabel(scale)); }

void ViewerBar::setFlippable(bool isFlippable) { m_flip->setVisible(isFlippable); }

void ViewerBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), barColor(palette()));
    painter.fillRect(0, height() - 1, width(), 1, separatorColor(palette()));
}

}  // namespace quarlin
