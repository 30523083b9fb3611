// A plugin that Qt loads into an installed program under test:
//   QT_PLUGIN_PATH=FOLDER QT_QPA_GENERIC_PLUGINS=first-paint:PICTURE quarlin
// Once the window has been painted, it is saved as PICTURE and closed as a user would close it. The title and
// description of the picture contain the title of the window and the number of its icon sizes.

#include <QGenericPlugin>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace {

using namespace Qt::StringLiterals;

class FirstPaint : public QObject {
public:
    explicit FirstPaint(QString picture) : m_picture(std::move(picture)) { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow()) {
            qApp->removeEventFilter(this);
            // The contents of the window are painted before control returns to the event loop.
            QTimer::singleShot(0, widget, [this, widget] { saveAndClose(*widget); });
        }
        return false;
    }

private:
    void saveAndClose(QWidget& window) const {
        QImage image = window.grab().toImage();
        image.setText(u"Title"_s, window.windowTitle());
        image.setText(u"Description"_s, QString::number(window.windowIcon().availableSizes().size()));
        image.save(m_picture);
        window.close();
    }

    QString m_picture;
};

}  // namespace

class FirstPaintPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_paint_plugin.json")

public:
    QObject* create(const QString&, const QString& picture) override { return new FirstPaint(picture); }
};

#include "first_paint_plugin.moc"

using namespace Qt::StringLiterals;
