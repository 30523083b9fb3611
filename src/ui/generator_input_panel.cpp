#include "generator_input_panel.h"

#include "button.h"
#include "metrics.h"
#include "normal_generator_store.h"
#include "panel_header.h"
#include "store_observer.h"
#include "texture_card.h"

#include <QVBoxLayout>

namespace quarlin {

GeneratorInputPanel::GeneratorInputPanel(NormalGeneratorStore& store, QWidget* parent) : QWidget(parent) {
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);

    auto* header = new PanelHeader(QStringLiteral("Map Source"));
    Button* reset = Button::symbolOnly(QStringLiteral("trash"), QStringLiteral("Reset Input"));
    reset->setObjectName(QStringLiteral("reset"));
    connect(reset, &Button::clicked, &store, &NormalGeneratorStore::reset);
    header->addAtEnd(reset);
    stack->addWidget(header);

    auto* card = new TextureCard(
        {QStringLiteral("photo"), QStringLiteral("Texture"), true,
         QStringLiteral(
             "The app estimates height, roughness, gloss, metallic and AO from one source texture."),
         QStringLiteral("Source")},
        [&store](const QMimeData& dragged) { return store.acceptDrop(dragged); });
    card->setObjectName(QStringLiteral("source"));
    connect(card, &TextureCard::chooseRequested, &store, &NormalGeneratorStore::chooseSourceTexture);
    connect(card, &TextureCard::removeRequested, &store, &NormalGeneratorStore::removeSourceTexture);
    auto* cardRow = new QVBoxLayout;
    cardRow->setContentsMargins(metrics::standardPadding, 0, metrics::standardPadding, 0);
    cardRow->addWidget(card);
    stack->addLayout(cardRow);
    stack->addStretch();

    new StoreObserver(
        store,
        [card, reset, &store] {
            card->setAsset(store.source());
            reset->setEnabled(store.canExport());
        },
        this);
}

}  // namespace quarlin
