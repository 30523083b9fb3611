#include "cli/options/nearest_name.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The number of letters to insert, delete or replace (Levenshtein's distance).
qsizetype distance(const QString& first, const QString& second) {
    std::vector<qsizetype> row(static_cast<std::size_t>(second.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const QChar letter : first) {
        qsizetype diagonal = row[0]++;
        for (std::size_t column = 1; column < row.size(); ++column) {
            const bool isSame = second[static_cast<qsizetype>(column) - 1] == letter;
            const qsizetype replaced = diagonal + (isSame ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({replaced, diagonal + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

QString suggestion(const QString& typed, const QStringList& names) {
    const auto nearest =
        std::min_element(names.begin(), names.end(), [&](const QString& left, const QString& right) {
            return distance(typed, left) < distance(typed, right);
        });
    // A third of the letters may be wrong; more is another word.
    const bool isLike =
        nearest != names.end() && distance(typed, *nearest) <= std::max<qsizetype>(1, nearest->size() / 3);
    return isLike ? u"; did you mean '"_s + *nearest + u"'?"_s : QString();
}

}  // namespace quarlin
