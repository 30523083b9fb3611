// A plugin that Qt loads into an installed program under test:
//   QT_PLUGIN_PATH=FOLDER QT_QPA_GENERIC_PLUGINS=first-paint:PICTURE quarlin
// Once the window has been painted, it is saved as PICTURE and closed as a user would close it. The title and
// description of the picture contain the title of the window and the number of its icon sizes. With
// first-paint-in-3d it is the 3D view that is opened and saved; the description is the class of its window.

#include <QAction>
#include <QApplication>
#include <QGenericPlugin>
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
            QTimer::singleShot(0, widget, [this, widget] { windowPainted(*widget); });
        }
        return false;
    }

protected:
    virtual void windowPainted(QWidget& window) {
        saveAndClose(window, QString::number(window.windowIcon().availableSizes().size()));
    }

    void saveAndClose(QWidget& window, const QString& description) const {
        QImage image = window.grab().toImage();
        image.setText(u"Title"_s, window.windowTitle());
        image.setText(u"Description"_s, description);
        image.save(m_picture);
        window.close();
    }

private:
    QString m_picture;
};

/// Opens the 3D view from the menu of the main window.
class FirstPaintIn3D : public FirstPaint {
public:
    using FirstPaint::FirstPaint;

private:
    void windowPainted(QWidget& window) override {
        for (QAction* action : window.findChildren<QAction*>()) {
            if (action->text() == u"&Material in 3D"_s) {
                action->trigger();
            }
        }
        // Either the 3D view or a message that there is none.
        for (QWidget* opened : QApplication::topLevelWidgets()) {
            if (opened->isVisible() && opened != &window) {
                saveAndClose(*opened, QString::fromLatin1(opened->metaObject()->className()));
            }
        }
        window.close();
    }
};

}  // namespace

class FirstPaintPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_paint_plugin.json")

public:
    QObject* create(const QString& key, const QString& picture) override {
        return key == u"first-paint-in-3d"_s ? new FirstPaintIn3D(picture) : new FirstPaint(picture);
    }
};

#include "first_paint_plugin.moc"

using namespace Qt::StringLiterals;
