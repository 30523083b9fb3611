#include "model/material_name.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

QString cleaned(const QString& name) { return safeMaterialName(name, u"Fallback"_s); }

TEST(MaterialName, KeepsLettersDigitsHyphenAndUnderscore) {
    EXPECT_EQ(cleaned(u"Brick-Wall_07"_s), u"Brick-Wall_07"_s);
    EXPECT_EQ(cleaned(u"-_-"_s), u"-_-"_s);
}

TEST(MaterialName, ReplacesEachOtherCharacterByOneUnderscore) {
    EXPECT_EQ(cleaned(u"a/b"_s), u"a_b"_s);
    EXPECT_EQ(cleaned(u"..\\.."_s), u"_____"_s);
    EXPECT_EQ(cleaned(u"###"_s), u"___"_s);
    EXPECT_EQ(cleaned(u"a:b*c?d\"e<f>g|h"_s), u"a_b_c_d_e_f_g_h"_s);
}

TEST(MaterialName, TrimsSpacesBeforeItTurnsTheOthersIntoUnderscores) {
    EXPECT_EQ(cleaned(u" a b "_s), u"a_b"_s);
    EXPECT_EQ(cleaned(u"  My Brick.Wall  "_s), u"My_Brick_Wall"_s);
    EXPECT_EQ(cleaned(u"a  b"_s), u"a__b"_s);
}

TEST(MaterialName, ReplacesTabsAndLineBreaksBeforeItTrims) {
    EXPECT_EQ(cleaned(u"\tname"_s), u"_name"_s);
    EXPECT_EQ(cleaned(u"\nabc"_s), u"_abc"_s);
    EXPECT_EQ(cleaned(u"abc\n"_s), u"abc_"_s);
    EXPECT_EQ(cleaned(u"a\r\nb"_s), u"a__b"_s);
    EXPECT_EQ(cleaned(u" \t "_s), u"_"_s);
}

TEST(MaterialName, OnlySpacesGiveTheFallback) {
    EXPECT_EQ(cleaned(QString()), u"Fallback"_s);
    EXPECT_EQ(cleaned(u"   "_s), u"Fallback"_s);
    EXPECT_EQ(cleaned(u"_"_s), u"_"_s);
}

TEST(MaterialName, NoBreakSpaceIsNoSpace) {
    EXPECT_EQ(cleaned(u"a\u00a0b"_s), u"a_b"_s);
    EXPECT_EQ(cleaned(u"\u2003a"_s), u"_a"_s);
}

TEST(MaterialName, KeepsLettersOfAnyScript) {
    for (const QString& name : {u"Gr\u00f6\u00dfe"_s, u"\u041a\u0438\u0440\u043f\u0438\u0447"_s,
                                u"\u7816\u5899"_s, u"\u05dc\u05d1\u05e0\u05d4"_s, u"\u0baa\u0bc6\u0bb2"_s}) {
        EXPECT_EQ(cleaned(name), name);
    }
}

TEST(MaterialName, KeepsCombiningMarks) {
    EXPECT_EQ(cleaned(u"Cafe\u0301"_s), u"Cafe\u0301"_s);
    EXPECT_EQ(cleaned(u"a\u20dd"_s), u"a\u20dd"_s);
}

TEST(MaterialName, KeepsDigitsAndNumbersOfAnyScript) {
    EXPECT_EQ(cleaned(u"\u0663\u0967"_s), u"\u0663\u0967"_s);
    EXPECT_EQ(cleaned(u"\u00bd\u2167"_s), u"\u00bd\u2167"_s);
}

TEST(MaterialName, AnEmojiBecomesOneUnderscore) {
    EXPECT_EQ(cleaned(u"a\U0001F9F1b"_s), u"a_b"_s);
    EXPECT_EQ(cleaned(u"\U0001F468\u200D\U0001F469"_s), u"___"_s);
}

TEST(MaterialName, KeepsLettersOutsideTheBasicPlane) {
    EXPECT_EQ(cleaned(u"\U00020BB7"_s), u"\U00020BB7"_s);
    EXPECT_EQ(cleaned(u"\U0001D7D8"_s), u"\U0001D7D8"_s);
}

TEST(MaterialName, SymbolsAreReplaced) { EXPECT_EQ(cleaned(u"5\u20ac +\u2212\u00b0"_s), u"5_____"_s); }

}  // namespace
