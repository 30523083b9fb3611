#include "formatters.h"

#include <QLocale>

#include <gtest/gtest.h>

using quarlin::Formatters::decimalLabel;
using quarlin::Formatters::percentLabel;

namespace {

class PercentLabel : public testing::Test {
protected:
    ~PercentLabel() override { QLocale::setDefault(before); }
    const QLocale before;
};

TEST_F(PercentLabel, ShowsWholePercentagesOnly) {
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    EXPECT_EQ(percentLabel(0.65), QStringLiteral("65%"));
    EXPECT_EQ(percentLabel(0.0), QStringLiteral("0%"));
    EXPECT_EQ(percentLabel(1.0), QStringLiteral("100%"));
    EXPECT_EQ(percentLabel(0.4567), QStringLiteral("46%"));
}

TEST_F(PercentLabel, RoundsHalvesToTheEvenNeighbour) {
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    EXPECT_EQ(percentLabel(0.655), QStringLiteral("66%"));
    EXPECT_EQ(percentLabel(0.645), QStringLiteral("64%"));
    EXPECT_EQ(percentLabel(0.005), QStringLiteral("0%"));
    EXPECT_EQ(percentLabel(0.015), QStringLiteral("2%"));
}

TEST_F(PercentLabel, ShowsEveryWholePercentageAsItself) {
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    for (int percent = 0; percent <= 100; ++percent) {
        EXPECT_EQ(percentLabel(percent / 100.0), QString::number(percent) + u'%');
    }
}

TEST_F(PercentLabel, ClampsNothing) {
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    EXPECT_EQ(percentLabel(1.7), QStringLiteral("170%"));
    EXPECT_EQ(percentLabel(-0.25), QStringLiteral("-25%"));
}

TEST_F(PercentLabel, FollowsAChangeOfTheLocale) {
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(percentLabel(0.18), QStringLiteral("18\u00a0%"));
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    EXPECT_EQ(percentLabel(0.18), QStringLiteral("18%"));
}

TEST_F(PercentLabel, FollowsTheLocale) {
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(percentLabel(0.65), QStringLiteral("65\u00a0%"));
    QLocale::setDefault(QLocale(QStringLiteral("ar_EG")));
    EXPECT_NE(percentLabel(0.65), QStringLiteral("65%"));
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(percentLabel(0.65), QStringLiteral("65%"));
}

TEST(DecimalLabel, RoundsTheExactValueWithTiesToTheEvenDigit) {
    EXPECT_EQ(decimalLabel(3, 1), QStringLiteral("3.0"));
    EXPECT_EQ(decimalLabel(10, 1), QStringLiteral("10.0"));
    EXPECT_EQ(decimalLabel(0.25, 1), QStringLiteral("0.2"));
    EXPECT_EQ(decimalLabel(0.75, 1), QStringLiteral("0.8"));
    EXPECT_EQ(decimalLabel(2.675, 2), QStringLiteral("2.67"));
    EXPECT_EQ(decimalLabel(-1.5, 2), QStringLiteral("-1.50"));
}

}  // namespace
