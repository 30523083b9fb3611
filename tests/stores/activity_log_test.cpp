#include "stores/activity_log.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using quarlin::ActivityLog;

namespace {

ActivityLog logAt(const QTime& time) {
    return {u"hint"_s, [time] { return time; }};
}

TEST(ActivityLog, BeginsWithTheHintAlone) { EXPECT_EQ(logAt({0, 0}).lines(), QStringList{u"hint"_s}); }

TEST(ActivityLog, StampsEachLineWithTheTimeOfDay) {
    EXPECT_EQ(logAt({14, 3, 27}).linesWith(u"Preview updated."_s).constFirst(),
              u"[14:03:27] Preview updated."_s);
    EXPECT_EQ(logAt({0, 0, 9}).linesWith(u"x"_s).constFirst(), u"[00:00:09] x"_s);
}

TEST(ActivityLog, PutsTheNewestLineFirst) {
    ActivityLog log = logAt({1, 2, 3});
    log.setLines(log.linesWith(u"one"_s));
    log.setLines(log.linesWith(u"two"_s));
    EXPECT_EQ(log.lines(), QStringList({u"[01:02:03] two"_s, u"[01:02:03] one"_s, u"hint"_s}));
}

TEST(ActivityLog, DropsTheOldestLineWhenTheEightyFirstComes) {
    ActivityLog log = logAt({1, 2, 3});
    for (int line = 1; line <= 79; ++line) {
        log.setLines(log.linesWith(QString::number(line)));
    }
    EXPECT_EQ(log.lines().size(), 80);
    EXPECT_EQ(log.lines().constLast(), u"hint"_s);
    log.setLines(log.linesWith(u"80"_s));
    EXPECT_EQ(log.lines().size(), 80);
    EXPECT_EQ(log.lines().constFirst(), u"[01:02:03] 80"_s);
    EXPECT_EQ(log.lines().constLast(), u"[01:02:03] 1"_s);
}

TEST(ActivityLog, WritesTheTimeInTheDigitsOfTheLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(u"ar_EG"_s));
    const QString line = logAt({14, 3, 27}).linesWith(u"x"_s).constFirst();
    QLocale::setDefault(before);
    EXPECT_EQ(line, u"[\u0661\u0664:\u0660\u0663:\u0662\u0667] x"_s);
}

}  // namespace
