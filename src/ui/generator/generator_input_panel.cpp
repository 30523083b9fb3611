#include "ui/generator/generator_input_panel.h"

#include "stores/normal_generator_store.h"
#include "ui/accessibility/accessible_role.h"
#include "ui/controls/button.h"
#include "ui/panels/observe.h"
#include "ui/panels/panel_header.h"
#include "ui/panels/texture_card.h"
#include "ui/panels/tool_actions.h"
#include "ui/style/metrics.h"

#include <QVBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

GeneratorInputPanel::GeneratorInputPanel(NormalGeneratorStore& store, ToolActions& actions, QWidget* parent)
    : QWidget(parent) {
    presentAs(*this, QAccessible::Pane, u"Map Source"_s);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);

    auto* header = new PanelHeader(u"Map Source"_s);
    Button* reset = actions.reset.makePanelButton(ButtonStyle::borderless);
    reset->setObjectName(u"reset"_s);
    header->addAtEnd(reset);
    stack->addWidget(header);

    auto* card = new TextureCard(
        {u"photo"_s, u"Texture"_s, true,
         u"The app estimates height, roughness, gloss, metallic and AO from one source texture."_s,
         u"Source"_s},
        [&store](const QMimeData& dragged) { return store.acceptDrop(dragged); });
    card->setObjectName(u"source"_s);
    connect(card, &TextureCard::chooseRequested, &store, &NormalGeneratorStore::chooseSourceTexture);
    connect(card, &TextureCard::removeRequested, &store, &NormalGeneratorStore::removeSourceTexture);
    auto* cardRow = new QVBoxLayout;
    cardRow->setContentsMargins(metrics::standardPadding, 0, metrics::standardPadding, 0);
    cardRow->addWidget(card);
    stack->addLayout(cardRow);
    stack->addStretch();

    observe(this, store, [card, &store] { card->setAsset(store.source()); });
}

}  // namespace quarlin
