#include "material_name.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

QString cleaned(const QString& name) { return safeMaterialName(name, QStringLiteral("Fallback")); }

TEST(MaterialName, KeepsLettersDigitsHyphenAndUnderscore) {
    EXPECT_EQ(cleaned(QStringLiteral("Brick-Wall_07")), QStringLiteral("Brick-Wall_07"));
    EXPECT_EQ(cleaned(QStringLiteral("-_-")), QStringLiteral("-_-"));
}

TEST(MaterialName, ReplacesEachOtherCharacterByOneUnderscore) {
    EXPECT_EQ(cleaned(QStringLiteral("a/b")), QStringLiteral("a_b"));
    EXPECT_EQ(cleaned(QStringLiteral("..\\..")), QStringLiteral("_____"));
    EXPECT_EQ(cleaned(QStringLiteral("###")), QStringLiteral("___"));
    EXPECT_EQ(cleaned(QStringLiteral("a:b*c?d\"e<f>g|h")), QStringLiteral("a_b_c_d_e_f_g_h"));
}

TEST(MaterialName, TrimsSpacesBeforeItTurnsTheOthersIntoUnderscores) {
    EXPECT_EQ(cleaned(QStringLiteral(" a b ")), QStringLiteral("a_b"));
    EXPECT_EQ(cleaned(QStringLiteral("  My Brick.Wall  ")), QStringLiteral("My_Brick_Wall"));
    EXPECT_EQ(cleaned(QStringLiteral("a  b")), QStringLiteral("a__b"));
}

TEST(MaterialName, ReplacesTabsAndLineBreaksBeforeItTrims) {
    EXPECT_EQ(cleaned(QStringLiteral("\tname")), QStringLiteral("_name"));
    EXPECT_EQ(cleaned(QStringLiteral("\nabc")), QStringLiteral("_abc"));
    EXPECT_EQ(cleaned(QStringLiteral("abc\n")), QStringLiteral("abc_"));
    EXPECT_EQ(cleaned(QStringLiteral("a\r\nb")), QStringLiteral("a__b"));
    EXPECT_EQ(cleaned(QStringLiteral(" \t ")), QStringLiteral("_"));
}

TEST(MaterialName, OnlySpacesGiveTheFallback) {
    EXPECT_EQ(cleaned(QString()), QStringLiteral("Fallback"));
    EXPECT_EQ(cleaned(QStringLiteral("   ")), QStringLiteral("Fallback"));
    EXPECT_EQ(cleaned(QStringLiteral("_")), QStringLiteral("_"));
}

TEST(MaterialName, NoBreakSpaceIsNoSpace) {
    EXPECT_EQ(cleaned(QStringLiteral("a\u00a0b")), QStringLiteral("a_b"));
    EXPECT_EQ(cleaned(QStringLiteral("\u2003a")), QStringLiteral("_a"));
}

TEST(MaterialName, KeepsLettersOfAnyScript) {
    for (const QString& name :
         {QStringLiteral("Gr\u00f6\u00dfe"), QStringLiteral("\u041a\u0438\u0440\u043f\u0438\u0447"),
          QStringLiteral("\u7816\u5899"), QStringLiteral("\u05dc\u05d1\u05e0\u05d4"),
          QStringLiteral("\u0baa\u0bc6\u0bb2")}) {
        EXPECT_EQ(cleaned(name), name);
    }
}

TEST(MaterialName, KeepsCombiningMarks) {
    EXPECT_EQ(cleaned(QStringLiteral("Cafe\u0301")), QStringLiteral("Cafe\u0301"));
    EXPECT_EQ(cleaned(QStringLiteral("a\u20dd")), QStringLiteral("a\u20dd"));
}

TEST(MaterialName, KeepsDigitsAndNumbersOfAnyScript) {
    EXPECT_EQ(cleaned(QStringLiteral("\u0663\u0967")), QStringLiteral("\u0663\u0967"));
    EXPECT_EQ(cleaned(QStringLiteral("\u00bd\u2167")), QStringLiteral("\u00bd\u2167"));
}

TEST(MaterialName, AnEmojiBecomesOneUnderscore) {
    EXPECT_EQ(cleaned(QStringLiteral("a\U0001F9F1b")), QStringLiteral("a_b"));
    EXPECT_EQ(cleaned(QStringLiteral("\U0001F468\u200D\U0001F469")), QStringLiteral("___"));
}

TEST(MaterialName, KeepsLettersOutsideTheBasicPlane) {
    EXPECT_EQ(cleaned(QStringLiteral("\U00020BB7")), QStringLiteral("\U00020BB7"));
    EXPECT_EQ(cleaned(QStringLiteral("\U0001D7D8")), QStringLiteral("\U0001D7D8"));
}

TEST(MaterialName, SymbolsAreReplaced) {
    EXPECT_EQ(cleaned(QStringLiteral("5\u20ac +\u2212\u00b0")), QStringLiteral("5_____"));
}

}  // namespace
