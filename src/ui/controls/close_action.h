#pragma once

class QAction;
class QWidget;

namespace quarlin {

/// Lets `action` close `window`, a window beside the main one, also with Escape and Ctrl+W. The window must
/// outlive the action.
void makeCloseAction(QAction& action, QWidget& window);

}  // namespace quarlin
