#pragma once

#include <QTextBrowser>

namespace quarlin {

/// The window that shows the user's guide, and the documents that it refers to. All of them are part of the
/// program, so that nothing has to be installed or reached.
class HelpWindow : public QTextBrowser {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent = nullptr);

    /// Brings the window to the front.
    void open();

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void spaceText();
    void styleTables();
};

}  // namespace quarlin
