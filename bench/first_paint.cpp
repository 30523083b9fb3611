// Opens the window and ends when it has been painted once, so that the running time of this program is the
// start-up time.

#include "app/vorek_quarlin_app.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

class FirstPaint : public QObject {
public:
    explicit FirstPaint(const QWidget& window) : m_window(window) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &m_window && event->type() == QEvent::Paint) {
            // The contents of the window are painted and shown before control returns to the event loop.
            QTimer::singleShot(0, [] { std::_Exit(0); });
        }
        return false;
    }

private:
    const QWidget& m_window;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(u"Fusion"_s);
    quarlin::VorekQuarlinApp program;
    FirstPaint firstPaint(program.window());
    QApplication::instance()->installEventFilter(&firstPaint);
    program.start();
    QApplication::exec();
    return 1;
}
