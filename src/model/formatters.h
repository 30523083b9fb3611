#pragma once

#include <QString>

namespace quarlin::Formatters {

/// `value`, a fraction of one, as a whole percentage in the manner of the user's locale, such as "65%".
/// Halves are rounded to the even neighbour.
QString percentLabel(double value);

}  // namespace quarlin::Formatters
