#pragma once

#include <QFont>

namespace quarlin {

/// The steps of the type scale. Each is a ratio of the application's own font, so that the window follows the
/// size the user reads at.
enum class TextStyle { title3Bold, title3, headline, body, callout, caption, monospacedCaption };

/// The font of `style`, derived from the application's font. No smaller than 11 pixels.
QFont font(TextStyle style);

/// `length`, given in device-independent pixels for a body of 13, at the size of the application's font.
/// Never less than `length`: it is for frames that hold text.
int textFrame(int length);

}  // namespace quarlin
