#include "ui/panels/texture_card.h"

#include "stores/dropped_file.h"
#include "ui/accessibility/accessible_role.h"
#include "ui/controls/button.h"
#include "ui/display/badge.h"
#include "ui/display/picture_view.h"
#include "ui/display/plain_tool_tip.h"
#include "ui/display/symbol_view.h"
#include "ui/display/text_label.h"
#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QMimeData>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 10;
constexpr int rowSpacing = 8;
constexpr int symbolFrame = 18;
constexpr int thumbnailSize = 54;
constexpr int thumbnailRadius = 6;

}  // namespace

TextureCard::TextureCard(const TextureCardTexts& texts, DropHandler drop, QWidget* parent)
    : QWidget(parent), m_drop(std::move(drop)) {
    setAcceptDrops(true);
    setToolTip(texts.help);
    presentAs(*this, QAccessible::Grouping, texts.title);
    setAccessibleDescription(texts.help);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(padding, padding, padding, padding);
    stack->setSpacing(rowSpacing);
    stack->addLayout(titleRow(texts));
    stack->addWidget(m_loaded = loadedBody(texts));
    m_choose = new Button(ButtonStyle::bordered, u"plus"_s, u"Choose"_s);
    m_choose->setObjectName(u"choose"_s);
    m_choose->setAccessibleName(u"Choose "_s + texts.subject);
    // Where the keyboard goes, assistive technology reads what a tooltip shows to others.
    m_choose->setAccessibleDescription(texts.required ? u"Required. "_s + texts.help : texts.help);
    m_replace->setAccessibleDescription(texts.help);
    stack->addWidget(m_choose);

    connect(m_remove, &Button::clicked, this, &TextureCard::removeRequested);
    connect(m_replace, &Button::clicked, this, &TextureCard::chooseRequested);
    connect(m_choose, &Button::clicked, this, &TextureCard::chooseRequested);
    setAsset(std::nullopt);
}

QHBoxLayout* TextureCard::titleRow(const TextureCardTexts& texts) {
    auto* row = new QHBoxLayout;
    row->setSpacing(rowSpacing);
    row->addWidget(new SymbolView(texts.symbol, metrics::symbolSize, symbolFrame));
    row->addWidget(new TextLabel(texts.title, TextStyle::headline));
    if (texts.required) {
        auto* badge = new Badge(u"Required"_s);
        badge->setObjectName(u"required"_s);
        row->addWidget(badge);
    }
    row->addStretch();
    m_remove = Button::symbolOnly(u"xmark.circle"_s, u"Remove "_s + texts.subject);
    m_remove->setObjectName(u"remove"_s);
    row->addWidget(m_remove);
    // The row is as high without the button as with it, so that nothing jumps when a texture is loaded.
    row->addStrut(m_remove->sizeHint().height());
    return row;
}

QWidget* TextureCard::loadedBody(const TextureCardTexts& texts) {
    auto* body = new QWidget;
    auto* row = new QHBoxLayout(body);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    m_thumbnail = new PictureView(thumbnailRadius, false);
    m_thumbnail->setFixedSize(thumbnailSize, thumbnailSize);
    row->addWidget(m_thumbnail);

    auto* names = new QVBoxLayout;
    names->setSpacing(3);
    names->addStretch();
    m_fileName = new TextLabel({}, TextStyle::callout);
    m_fileName->setObjectName(u"fileName"_s);
    m_fileName->setElided(true);
    names->addWidget(m_fileName);
    m_size = new TextLabel({}, TextStyle::caption, TextWeight::secondary);
    m_size->setObjectName(u"sizeLabel"_s);
    names->addWidget(m_size);
    names->addStretch();
    row->addLayout(names, 1);

    m_replace = Button::symbolOnly(u"arrow.triangle.2.circlepath"_s, u"Replace "_s + texts.subject);
    m_replace->setObjectName(u"replace"_s);
    row->addWidget(m_replace);
    return body;
}

void TextureCard::setAsset(const std::optional<TextureAsset>& asset) {
    const bool filled = asset.has_value();
    const bool focusWithin = m_choose->hasFocus() || m_replace->hasFocus() || m_remove->hasFocus();
    m_remove->setVisible(filled);
    m_loaded->setVisible(filled);
    m_choose->setVisible(!filled);
    if (asset) {
        m_thumbnail->setImage(asset->preview);
        m_thumbnail->setAccessibleName(asset->fileName);
        m_fileName->setText(asset->fileName);
        m_size->setText(asset->sizeLabel());
        m_size->setToolTip(asset->valueNote());
    } else {
        m_thumbnail->setImage({});
    }
    // The keyboard stays in the card whose button it has just pressed.
    if (focusWithin && !(m_choose->hasFocus() || m_replace->hasFocus() || m_remove->hasFocus())) {
        takeFocus();
    }
}

void TextureCard::takeFocus() {
    (m_choose->isHidden() ? m_replace : m_choose)->setFocus(Qt::OtherFocusReason);
}

void TextureCard::setDropTarget(bool isTarget) {
    m_isDropTarget = isTarget;
    update();
}

bool TextureCard::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        showPlainToolTip(*this, *static_cast<QHelpEvent*>(event), toolTip());
        return true;
    }
    return QWidget::event(event);
}

void TextureCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor accent = accentColor(palette());
    const QColor secondary = secondaryColor(palette());
    paintSurface(painter, rect(), metrics::cornerRadius,
                 m_isDropTarget ? withOpacity(accent, 0.18) : withOpacity(secondary, 0.08),
                 m_isDropTarget ? accent : withOpacity(secondary, 0.14));
}

void TextureCard::dragEnterEvent(QDragEnterEvent* event) {
    if (droppedFile(*event->mimeData())) {
        // The file is only read: its source must not treat it as moved.
        event->setDropAction(Qt::CopyAction);
        event->accept();
        setDropTarget(true);
    } else {
        event->ignore();
    }
}

void TextureCard::dragMoveEvent(QDragMoveEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(m_isDropTarget);
}

void TextureCard::dragLeaveEvent(QDragLeaveEvent*) { setDropTarget(false); }

void TextureCard::dropEvent(QDropEvent* event) {
    setDropTarget(false);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(m_drop(*event->mimeData()));
}

}  // namespace quarlin
