#include "model/formatters.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using quarlin::Formatters::decimalLabel;
using quarlin::Formatters::percentLabel;

namespace {

class PercentLabel : public testing::Test {
protected:
    ~PercentLabel() override { QLocale::setDefault(before); }
    const QLocale before;
};

TEST_F(PercentLabel, ShowsWholePercentagesOnly) {
    QLocale::setDefault(QLocale(u"en_US"_s));
    EXPECT_EQ(percentLabel(0.65), u"65%"_s);
    EXPECT_EQ(percentLabel(0.0), u"0%"_s);
    EXPECT_EQ(percentLabel(1.0), u"100%"_s);
    EXPECT_EQ(percentLabel(0.4567), u"46%"_s);
}

TEST_F(PercentLabel, RoundsHalvesToTheEvenNeighbor) {
    QLocale::setDefault(QLocale(u"en_US"_s));
    EXPECT_EQ(percentLabel(0.655), u"66%"_s);
    EXPECT_EQ(percentLabel(0.645), u"64%"_s);
    EXPECT_EQ(percentLabel(0.005), u"0%"_s);
    EXPECT_EQ(percentLabel(0.015), u"2%"_s);
}

TEST_F(PercentLabel, ShowsEveryWholePercentageAsItself) {
    QLocale::setDefault(QLocale(u"en_US"_s));
    for (int percent = 0; percent <= 100; ++percent) {
        EXPECT_EQ(percentLabel(percent / 100.0), QString::number(percent) + u'%');
    }
}

TEST_F(PercentLabel, ClampsNothing) {
    QLocale::setDefault(QLocale(u"en_US"_s));
    EXPECT_EQ(percentLabel(1.7), u"170%"_s);
    EXPECT_EQ(percentLabel(-0.25), u"-25%"_s);
}

TEST_F(PercentLabel, FollowsAChangeOfTheLocale) {
    QLocale::setDefault(QLocale(u"de_DE"_s));
    EXPECT_EQ(percentLabel(0.18), u"18\u00a0%"_s);
    QLocale::setDefault(QLocale(u"en_US"_s));
    EXPECT_EQ(percentLabel(0.18), u"18%"_s);
}

TEST_F(PercentLabel, FollowsTheLocale) {
    QLocale::setDefault(QLocale(u"de_DE"_s));
    EXPECT_EQ(percentLabel(0.65), u"65\u00a0%"_s);
    QLocale::setDefault(QLocale(u"ar_EG"_s));
    EXPECT_NE(percentLabel(0.65), u"65%"_s);
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(percentLabel(0.65), u"65%"_s);
}

TEST(DecimalLabel, RoundsTheExactValueWithTiesToTheEvenDigit) {
    EXPECT_EQ(decimalLabel(3, 1), u"3.0"_s);
    EXPECT_EQ(decimalLabel(10, 1), u"10.0"_s);
    EXPECT_EQ(decimalLabel(0.25, 1), u"0.2"_s);
    EXPECT_EQ(decimalLabel(0.75, 1), u"0.8"_s);
    EXPECT_EQ(decimalLabel(2.675, 2), u"2.67"_s);
    EXPECT_EQ(decimalLabel(-1.5, 2), u"-1.50"_s);
}

}  // namespace
