#pragma once

#include <QString>

namespace quarlin::Formatters {

/// `value`, a fraction of one, as a whole percentage in the manner of the user's locale, such as "65%".
/// Halves are rounded to the even neighbor.
QString percentLabel(double value);

/// `value` with `decimals` digits behind a point, in every locale, as "%.*f" of the C language writes it:
/// rounded from the double's exact value, a tie to the even digit.
QString decimalLabel(double value, int decimals);

}  // namespace quarlin::Formatters
