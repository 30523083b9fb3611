#include "ui/material/texture_sidebar.h"

#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "ui/accessibility/accessible_role.h"
#include "ui/controls/button.h"
#include "ui/layout/scroll_panel.h"
#include "ui/panels/observe.h"
#include "ui/panels/panel_header.h"
#include "ui/panels/texture_card.h"
#include "ui/panels/tool_actions.h"
#include "ui/style/metrics.h"

#include <QVBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int cardSpacing = 10;

std::optional<TextureAsset> assetIn(const MaterialStore& store, TextureSlotKind kind) {
    const auto asset = store.textures().find(kind);
    return asset == store.textures().end() ? std::nullopt : std::optional(asset->second);
}

TextureCard* makeCard(MaterialStore& store, TextureSlotKind kind) {
    auto* card =
        new TextureCard({systemImage(kind), title(kind), required(kind), help(kind), title(kind)},
                        [&store, kind](const QMimeData& dragged) { return store.acceptDrop(dragged, kind); });
    card->setObjectName(rawValue(kind));
    QObject::connect(card, &TextureCard::chooseRequested, &store,
                     [&store, kind] { store.chooseTexture(kind); });
    QObject::connect(card, &TextureCard::removeRequested, &store,
                     [&store, kind] { store.removeTexture(kind); });
    observe(card, store, [card, &store, kind] { card->setAsset(assetIn(store, kind)); });
    return card;
}

}  // namespace

TextureSidebar::TextureSidebar(MaterialStore& store, ToolActions& actions, QWidget* parent)
    : QWidget(parent) {
    presentAs(*this, QAccessible::Pane, u"Textures"_s);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);

    auto* header = new PanelHeader(u"Textures"_s);
    Button* reset = actions.reset.makePanelButton(ButtonStyle::borderless);
    reset->setObjectName(u"reset"_s);
    header->addAtEnd(reset);
    stack->addWidget(header);

    auto* cards = new ScrollPanel(
        cardSpacing, {metrics::standardPadding, 0, metrics::standardPadding, metrics::standardPadding});
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        cards->rows()->addWidget(makeCard(store, kind));
    }
    cards->rows()->addStretch();
    stack->addWidget(cards);
}

}  // namespace quarlin
