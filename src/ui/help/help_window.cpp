#include "ui/help/help_window.h"

#include "ui/help/guide.h"
#include "ui/style/colors.h"

#include <QAction>
#include <QEvent>
#include <QTextFrame>
#include <QTextTable>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize startSize(760, 780);
constexpr int margin = 24;
constexpr int cellPadding = 6;

QUrl guideLocation() { return QUrl(u"qrc:/guide/README.md"_s); }

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
    setWindowFlag(Qt::Window);
    setWindowTitle(u"Quarlin Help"_s);
    setAccessibleName(u"Quarlin Help"_s);
    setFrameShape(QFrame::NoFrame);
    setOpenExternalLinks(true);
    resize(startSize);
    auto* close = new QAction(u"Close"_s, this);
    close->setShortcuts({Qt::Key_Escape, Qt::CTRL | Qt::Key_W});
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
    connect(this, &QTextBrowser::sourceChanged, this, &HelpWindow::styleTables);
    setSource(guideLocation());
}

void HelpWindow::open() {
    show();
    raise();
    activateWindow();
}

QVariant HelpWindow::loadResource(int type, const QUrl& name) {
    const QVariant content = QTextBrowser::loadResource(type, name);
    return name == guideLocation() ? guideOf(QString::fromUtf8(content.toByteArray())) : content;
}

void HelpWindow::styleTables() {
    document()->setDocumentMargin(margin);
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setBorderBrush(separatorColor(palette()));
            format.setBorder(1);
            format.setBorderCollapse(true);
            format.setCellPadding(cellPadding);
            format.setBottomMargin(margin / 2.0);
            table->setFormat(format);
        }
    }
}

void HelpWindow::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        styleTables();
    }
}

}  // namespace quarlin
