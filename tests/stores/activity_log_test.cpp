#include "activity_log.h"

#include <QLocale>

#include <gtest/gtest.h>

using quarlin::ActivityLog;

namespace {

ActivityLog logAt(const QTime& time) {
    return {QStringLiteral("hint"), [time] { return time; }};
}

TEST(ActivityLog, BeginsWithTheHintAlone) {
    EXPECT_EQ(logAt({0, 0}).lines(), QStringList{QStringLiteral("hint")});
}

TEST(ActivityLog, StampsEachLineWithTheTimeOfDay) {
    EXPECT_EQ(logAt({14, 3, 27}).linesWith(QStringLiteral("Preview updated.")).constFirst(),
              QStringLiteral("[14:03:27] Preview updated."));
    EXPECT_EQ(logAt({0, 0, 9}).linesWith(QStringLiteral("x")).constFirst(), QStringLiteral("[00:00:09] x"));
}

TEST(ActivityLog, PutsTheNewestLineFirst) {
    ActivityLog log = logAt({1, 2, 3});
    log.setLines(log.linesWith(QStringLiteral("one")));
    log.setLines(log.linesWith(QStringLiteral("two")));
    EXPECT_EQ(log.lines(), QStringList({QStringLiteral("[01:02:03] two"), QStringLiteral("[01:02:03] one"),
                                        QStringLiteral("hint")}));
}

TEST(ActivityLog, DropsTheOldestLineWhenTheEightyFirstComes) {
    ActivityLog log = logAt({1, 2, 3});
    for (int line = 1; line <= 79; ++line) {
        log.setLines(log.linesWith(QString::number(line)));
    }
    EXPECT_EQ(log.lines().size(), 80);
    EXPECT_EQ(log.lines().constLast(), QStringLiteral("hint"));
    log.setLines(log.linesWith(QStringLiteral("80")));
    EXPECT_EQ(log.lines().size(), 80);
    EXPECT_EQ(log.lines().constFirst(), QStringLiteral("[01:02:03] 80"));
    EXPECT_EQ(log.lines().constLast(), QStringLiteral("[01:02:03] 1"));
}

TEST(ActivityLog, WritesTheTimeInTheDigitsOfTheLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(QStringLiteral("ar_EG")));
    const QString line = logAt({14, 3, 27}).linesWith(QStringLiteral("x")).constFirst();
    QLocale::setDefault(before);
    EXPECT_EQ(line, QStringLiteral("[\u0661\u0664:\u0660\u0663:\u0662\u0667] x"));
}

}  // namespace
