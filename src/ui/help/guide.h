#pragma once

#include <QString>

namespace quarlin {

/// The user's guide in Markdown: the sections of `readme`, which is Markdown too, on the two tools and on the
/// files that are written, without their pictures of the window.
QString guideOf(const QString& readme);

}  // namespace quarlin
