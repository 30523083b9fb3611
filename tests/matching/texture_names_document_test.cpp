// The tables of docs/texture-names.md.

#include "layout_file.h"
#include "qstring_printing.h"

#include "matching/map_words.h"
#include "matching/unused_file.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

/// The rows of the table whose first column is called `heading`, without the heading itself.
QList<QStringList> tableOf(const QString& heading) {
    QFile file(QString::fromUtf8(DOCUMENT_PATH));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QList<QStringList> rows;
    bool isInside = false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        QStringList cells = line.split(u'|');
        isInside = isInside ? line.startsWith(u'|') : line.startsWith(u"| "_s + heading + u" |"_s);
        if (isInside && !line.startsWith(u"| ---"_s)) {
            cells = cells.mid(1, cells.size() - 2);
            for (QString& cell : cells) {
                cell = cell.trimmed();
            }
            rows += cells;
        }
    }
    EXPECT_GT(rows.size(), 1) << heading.toStdString();
    return rows.mid(1);
}

/// "red Metallic, alpha Roughness / Gloss, inverted".
QString usesText(MapKind kind) {
    QStringList texts;
    for (const auto& use : tableRow(kind).uses) {
        if (use) {
            texts += (use->channel ? title(*use->channel) + u' ' : QString()) + title(use->slot) +
                     (use->isGloss ? u", inverted"_s : QString());
        }
    }
    return texts.isEmpty() ? u"not used"_s : texts.join(u", "_s);
}

TEST(TextureNamesDocument, ListsTheWordsOfEveryKind) {
    QList<QStringList> wanted;
    for (const MapKind kind : allCases<MapKind>()) {
        wanted += QStringList{rawValue(kind), MapWords::common(kind).join(u", "_s), usesText(kind)};
    }
    EXPECT_EQ(tableOf(u"kind"_s), wanted);
}

TEST(TextureNamesDocument, NamesTheAmbiguousWords) {
    QFile file(QString::fromUtf8(DOCUMENT_PATH));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll()).simplified();
    QStringList ambiguous;
    for (const MapKind kind : allCases<MapKind>()) {
        for (const QString& word : MapWords::common(kind)) {
            if (MapWords().find(word)->evidence == Evidence::ambiguous) {
                ambiguous += word;
            }
        }
    }
    ambiguous.sort();
    EXPECT_TRUE(text.contains(u"also describe surfaces: "_s + ambiguous.join(u", "_s) + u'.'))
        << ambiguous.join(u", "_s).toStdString();
}

TEST(TextureNamesDocument, ListsEveryReason) {
    QList<QStringList> wanted;
    for (const auto& row : EnumerationTable<UnusedReason>::rows) {
        wanted += QStringList{row.rawValue, row.title, row.isFailureIfStrict ? u"fails"_s : QString()};
    }
    EXPECT_EQ(tableOf(u"identifier"_s), wanted);
}

TEST(TextureNamesDocument, ShowsEveryLayoutAsItIsTested) {
    QMap<QString, QMap<QString, QString>> shown;
    QString layout;
    for (const QStringList& row : tableOf(u"layout"_s)) {
        layout = row[0].isEmpty() ? layout : row[0].toLower().replace(u' ', u'_');
        shown[layout].insert(row[1], row[2]);
    }
    QMap<QString, QMap<QString, QString>> tested;
    for (const LayoutFile& file : layoutFiles()) {
        tested.insert(file.name, file.lines);
    }
    EXPECT_EQ(shown, tested);
}

}  // namespace
