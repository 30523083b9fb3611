#include "ui/help/guide.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array headings{"## PBR Material"_L1, "## Map Generator"_L1, "## What is written"_L1};

bool beginsSection(const QString& line) { return line.startsWith(u"## "_s); }

bool isWanted(const QString& heading) {
    return std::any_of(headings.begin(), headings.end(),
                       [&](QLatin1StringView wanted) { return heading.startsWith(wanted); });
}

}  // namespace

QString guideOf(const QString& readme) {
    QString guide = u"# Quarlin Help\n\n"_s;
    bool isInside = false;
    for (const QString& line : readme.split(u'\n')) {
        if (beginsSection(line)) {
            isInside = isWanted(line);
        }
        if (isInside && !line.startsWith(u"!["_s)) {
            guide += line + u'\n';
        }
    }
    return guide;
}

}  // namespace quarlin
