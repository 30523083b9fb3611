#pragma once

#include <QIcon>

namespace quarlin {

/// The icon of the program's windows, in every size that it was rendered in.
QIcon applicationIcon();

}  // namespace quarlin
