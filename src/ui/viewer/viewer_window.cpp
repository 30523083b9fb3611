#include "ui/viewer/viewer_window.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/controls/close_action.h"
#include "ui/display/text_label.h"
#include "ui/panels/empty_preview.h"
#include "ui/style/metrics.h"
#include "ui/viewer/map_canvas.h"
#include "ui/viewer/viewer_bar.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize startSize(900, 760);
constexpr int statusPadding = 6;
/// Six maps of 4096 x 4096, or none besides the shown one of 16384 x 16384.
constexpr qsizetype cachedBytes = qsizetype{512} << 20U;

QString sizeText(const QSize& size) {
    return QString::number(size.width()) + u'x' + QString::number(size.height());
}

/// Columns of a fixed width, so that the text does not jump while the pointer moves.
QString probeText(const ProbedPixel& pixel) {
    constexpr int widestChannel = 3;
    return u"x %1  y %2   R %3  G %4  B %5  A %6"_s.arg(pixel.place.x())
        .arg(pixel.place.y())
        .arg(pixel.value.red(), widestChannel)
        .arg(pixel.value.green(), widestChannel)
        .arg(pixel.value.blue(), widestChannel)
        .arg(pixel.value.alpha(), widestChannel);
}

/// The same for a screen reader.
QString spokenProbe(const ProbedPixel& pixel) {
    return u"Pixel %1, %2: red %3, green %4, blue %5, alpha %6"_s.arg(pixel.place.x())
        .arg(pixel.place.y())
        .arg(pixel.value.red())
        .arg(pixel.value.green())
        .arg(pixel.value.blue())
        .arg(pixel.value.alpha());
}

}  // namespace

ViewerWindow::ViewerWindow(QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_cache(cachedBytes),
      m_bar(new ViewerBar(m_actions)),
      m_canvas(new MapCanvas),
      m_pages(new QStackedWidget),
      m_empty(new EmptyPreview(u"photo.on.rectangle.angled"_s)),
      m_state(new TextLabel({}, TextStyle::callout, TextWeight::secondary)),
      m_probe(new TextLabel({}, TextStyle::monospacedCaption, TextWeight::secondary)) {
    resize(startSize);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addWidget(m_bar);
    m_pages->addWidget(m_canvas);
    m_pages->addWidget(m_empty);
    stack->addWidget(m_pages, 1);
    auto* status = new QHBoxLayout;
    status->setContentsMargins(metrics::standardPadding, statusPadding, metrics::standardPadding,
                               statusPadding);
    status->setSpacing(metrics::standardPadding);
    m_state->setObjectName(u"state"_s);
    m_state->setElided(true);
    m_probe->setObjectName(u"probe"_s);
    status->addWidget(m_state, 1);
    status->addWidget(m_probe);
    stack->addLayout(status);

    addActions(m_actions.all());
    makeCloseAction(m_actions.close, *this);
    m_canvas->addActions(m_actions.all());
    m_canvas->setContextMenuPolicy(Qt::ActionsContextMenu);
    connectActions();
    presentAs(*m_canvas, QAccessible::Graphic, {});
    connect(m_canvas, &MapCanvas::scaleChanged, this, [this] { m_bar->setScale(m_canvas->scale()); });
    connect(m_canvas, &MapCanvas::probeChanged, this, &ViewerWindow::showProbe);
    connect(m_canvas, &MapCanvas::stepRequested, this, &ViewerWindow::step);
    connect(&m_loader, &MapLoader::loaded, this, [this](const std::shared_ptr<const MapPyramid>& map) {
        m_cache.insert({m_image, isFlipped()}, map);
        showMap(map);
    });
    connect(&m_loader, &MapLoader::failed, this, &ViewerWindow::showFailure);
    connect(&m_loader, &MapLoader::progressed, this, [this](int percent) {
        showState(u"Building %1 ... %2 %"_s.arg(sizeText(shown()->size)).arg(percent));
    });
}

void ViewerWindow::connectActions() {
    const auto run = [this](QAction& action, auto&& what) {
        connect(&action, &QAction::triggered, this, what);
    };
    run(m_actions.previous, [this] { step(-1); });
    run(m_actions.next, [this] { step(1); });
    run(m_actions.zoomIn, [this] { m_canvas->zoomIn(); });
    run(m_actions.zoomOut, [this] { m_canvas->zoomOut(); });
    run(m_actions.fit, [this] { m_canvas->fit(); });
    run(m_actions.showPixels, [this] { m_canvas->showPixels(); });
    connect(&m_actions.tile, &QAction::toggled, m_canvas, &MapCanvas::setTiled);
    // The map from before the flip is shown until the other one is made: the preview could be of either.
    run(m_actions.flip, [this] { loadMap(); });
    connect(&m_actions, &ViewerActions::channelChanged, this, [this] {
        m_canvas->setChannel(m_actions.channel());
        announce(m_actions.channelText());
    });
}

void ViewerWindow::open(const MapSource& source, int image) {
    if (m_source != &source) {
        if (m_source) {
            m_source->disconnect(this);
        }
        m_source = &source;
        m_cache.clear();
        connect(&source, &MapSource::changed, this, [this] {
            m_cache.clear();
            if (isVisible()) {
                showSource();
            }
        });
    }
    m_image = image;
    m_canvas->setFocus();
    show();
    raise();
    activateWindow();
    showSource();
}

void ViewerWindow::showSource() {
    m_maps = m_source ? m_source->maps() : std::vector<ShownMap>();
    m_pages->setCurrentWidget(m_maps.empty() ? m_empty : m_canvas);
    for (QAction* action : m_actions.all()) {
        action->setEnabled(!m_maps.empty() || action == &m_actions.close);
    }
    if (m_maps.empty()) {
        m_loader.cancel();
        m_canvas->setMap(nullptr);
        m_bar->setMap({}, {});
        m_bar->setFlippable(false);
        showState({});
        setWindowTitle(u"Quarlin"_s);
        return;
    }
    showImage(shown() != nullptr ? m_image : m_maps.front().image);
}

const ShownMap* ViewerWindow::shown() const {
    const auto found = std::find_if(m_maps.begin(), m_maps.end(),
                                    [this](const ShownMap& map) { return map.image == m_image; });
    return found == m_maps.end() ? nullptr : &*found;
}

bool ViewerWindow::isFlipped() const { return shown()->hasNormals && m_actions.flip.isChecked(); }

void ViewerWindow::step(int distance) {
    if (const ShownMap* map = shown()) {
        const auto count = static_cast<int>(m_maps.size());
        const int index = static_cast<int>(map - m_maps.data()) + distance;
        showImage(m_maps[static_cast<std::size_t>(std::clamp(index, 0, count - 1))].image);
    }
}

void ViewerWindow::showImage(int image) {
    m_image = image;
    const ShownMap& map = *shown();
    m_bar->setMap(map.title, map.subtitle);
    m_bar->setFlippable(map.hasNormals);
    m_actions.flip.setEnabled(map.hasNormals);
    m_actions.previous.setEnabled(map.image != m_maps.front().image);
    m_actions.next.setEnabled(map.image != m_maps.back().image);
    m_actions.flip.setChecked(map.isFlipped);
    setWindowTitle(map.title + u" - "_s + m_source->materialName());
    m_canvas->setAccessibleName(map.title);
    announce(map.subtitle);
    m_canvas->setMap(std::make_shared<MapPyramid>(map.preview, map.size));
    loadMap();
}

void ViewerWindow::loadMap() {
    const ShownMap* map = shown();
    if (map == nullptr) {
        return;
    }
    if (const auto kept = m_cache.find({m_image, isFlipped()})) {
        m_loader.cancel();
        showMap(kept);
        return;
    }
    showState(u"Building %1 ..."_s.arg(sizeText(map->size)));
    m_loader.load(m_source->workFor(m_image, isFlipped()), map->size.height());
}

void ViewerWindow::showMap(const std::shared_ptr<const MapPyramid>& map) {
    m_canvas->setMap(map);
    const bool isExported = isFlipped() == shown()->isFlipped;
    showState(sizeText(map->size()) + (isExported ? QString() : u", not as it is exported"_s));
}

void ViewerWindow::showFailure(const QString& reason) { showState(u"Load failed: "_s + reason); }

void ViewerWindow::showState(const QString& text) { m_state->setText(text); }

void ViewerWindow::showProbe() {
    const auto pixel = m_canvas->probedPixel();
    m_probe->setText(pixel ? probeText(*pixel) : QString());
    m_probe->setVisible(pixel.has_value());
    if (pixel) {
        announce(spokenProbe(*pixel));
    }
}

void ViewerWindow::announce(const QString& news) { m_canvas->setAccessibleDescription(news); }

void ViewerWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (event->spontaneous()) {
        return;
    }
    // A closed viewer holds no maps. One that is only minimized stays as it is.
    m_loader.cancel();
    m_cache.clear();
    m_maps.clear();
    m_canvas->setMap(nullptr);
}

}  // namespace quarlin
