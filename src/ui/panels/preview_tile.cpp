#include "ui/panels/preview_tile.h"

#include "ui/display/picture_view.h"
#include "ui/display/text_label.h"
#include "ui/panels/tile_accessible.h"
#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QAction>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

PreviewTile::PreviewTile(const PreviewTileContent& content, QWidget* parent)
    : QWidget(parent),
      m_image(new SquarePictureView(metrics::cornerRadius)),
      m_title(new TextLabel({}, TextStyle::headline)),
      m_subtitle(new TextLabel({}, TextStyle::caption, TextWeight::secondary)) {
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(8, 8, 8, 8);
    stack->setSpacing(8);
    stack->addWidget(m_image);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    for (TextLabel* label : {m_title, m_subtitle}) {
        label->setElided(true);
        texts->addWidget(label);
    }
    stack->addLayout(texts);
    stack->addStretch();
    setFocusPolicy(Qt::StrongFocus);
    installTileAccessibility();
    auto* open = new QAction(u"Open in Viewer"_s, this);
    open->setShortcuts({Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space});
    open->setShortcutContext(Qt::WidgetShortcut);
    connect(open, &QAction::triggered, this, &PreviewTile::opened);
    addAction(open);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setContent(content);
}

void PreviewTile::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Q_EMIT opened();
    }
}

void PreviewTile::setContent(const PreviewTileContent& content) {
    m_image->setImage(content.image);
    m_title->setText(content.title);
    m_subtitle->setText(content.subtitle);
    m_image->setAccessibleName(content.title);
    setAccessibleName(content.title);
    setAccessibleDescription(content.subtitle);
}

QString PreviewTile::title() const { return m_title->text(); }

QString PreviewTile::subtitle() const { return m_subtitle->text(); }

const QImage& PreviewTile::image() const { return m_image->image(); }

void PreviewTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSurface(painter, rect(), metrics::cornerRadius, withOpacity(secondaryColor(palette()), 0.08),
                 Qt::transparent);
    paintFocusRing(painter, *this, rect(), metrics::cornerRadius);
}

}  // namespace quarlin
