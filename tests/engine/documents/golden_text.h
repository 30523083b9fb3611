#pragma once

#include "qstring_printing.h"

#include <QByteArray>
#include <QLocale>
#include <QString>

#include <gtest/gtest.h>

namespace quarlin {

using namespace Qt::StringLiterals;

/// Tests of texts with percentages. They run in a fixed locale, whatever that of the machine is.
class InEnglish : public testing::Test {
protected:
    InEnglish() { QLocale::setDefault(QLocale(u"en_US"_s)); }
    ~InEnglish() override { QLocale::setDefault(m_before); }

private:
    const QLocale m_before;
};

/// Whether both texts are equal; a failure reports the first line that differs.
inline testing::AssertionResult sameText(const QString& expected, const QString& actual) {
    if (expected == actual) {
        return testing::AssertionSuccess();
    }
    const QStringList expectedLines = expected.split(u'\n');
    const QStringList actualLines = actual.split(u'\n');
    qsizetype line = 0;
    while (line < expectedLines.size() && line < actualLines.size() &&
           expectedLines[line] == actualLines[line]) {
        ++line;
    }
    return testing::AssertionFailure()
           << "line " << line + 1 << ": expected \"" << expectedLines.value(line).toStdString()
           << "\", found \"" << actualLines.value(line).toStdString() << "\" (" << expectedLines.size()
           << " and " << actualLines.size() << " lines)";
}

inline testing::AssertionResult sameText(const QByteArray& expected, const QByteArray& actual) {
    return sameText(QString::fromUtf8(expected), QString::fromUtf8(actual));
}

}  // namespace quarlin
