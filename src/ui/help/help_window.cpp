#include "ui/help/help_window.h"

#include "ui/controls/close_action.h"
#include "ui/help/guide.h"
#include "ui/style/colors.h"

#include <QAction>
#include <QEvent>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize startSize(760, 780);
constexpr int margin = 24;
constexpr int cellPadding = 6;
/// Above a heading, and below everything but the lines of code.
constexpr int headingSpacing = 14;
constexpr int paragraphSpacing = 8;
constexpr int itemSpacing = 4;

QUrl guideLocation() { return QUrl(u"qrc:/guide/README.md"_s); }

bool isCode(const QTextBlock& block) { return block.blockFormat().hasProperty(QTextFormat::BlockCodeFence); }

int spacingBelow(const QTextBlock& block) {
    if (isCode(block) && isCode(block.next())) {
        return 0;
    }
    const bool isAmongItems = block.textList() != nullptr && block.next().textList() != nullptr;
    return isAmongItems ? itemSpacing : paragraphSpacing;
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
    setWindowFlag(Qt::Window);
    setWindowTitle(u"Quarlin Help"_s);
    setAccessibleName(u"Quarlin Help"_s);
    setFrameShape(QFrame::NoFrame);
    setOpenExternalLinks(true);
    resize(startSize);
    makeCloseAction(*new QAction(this), *this);
    connect(this, &QTextBrowser::sourceChanged, this, [this] {
        spaceText();
        styleTables();
    });
    setSource(guideLocation());
}

void HelpWindow::open() {
    show();
    raise();
    activateWindow();
}

QVariant HelpWindow::loadResource(int type, const QUrl& name) {
    QVariant content = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::MarkdownResource) {
        return content;
    }
    const QString text = QString::fromUtf8(content.toByteArray());
    return name == guideLocation() ? guideOf(text) : u"Back to [Quarlin Help](../README.md)\n\n"_s + text;
}

void HelpWindow::spaceText() {
    QTextCursor cursor(document());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        cursor.setPosition(block.position());
        // The cells of a table have a padding.
        if (cursor.currentTable() == nullptr) {
            QTextBlockFormat format;
            const bool isSection = block.blockFormat().headingLevel() > 1;
            format.setTopMargin(isSection ? headingSpacing : 0);
            format.setBottomMargin(spacingBelow(block));
            cursor.mergeBlockFormat(format);
        }
    }
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
