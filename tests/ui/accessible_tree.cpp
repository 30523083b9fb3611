#include "accessible_tree.h"

#include <QFile>
#include <QMetaEnum>

#include <gtest/gtest.h>

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

namespace {

/// What a screen reader finds below `object`, one object to a line: role, name and, in parentheses, the
/// description. What is invisible, and what only arranges others, is left out.
void describe(QAccessibleInterface& object, int depth, QString& text) {
    if (object.state().invisible) {
        return;
    }
    const bool isArrangement =
        object.role() == QAccessible::Client || object.role() == QAccessible::LayeredPane;
    if (!isArrangement) {
        const QString role =
            QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(object.role()));
        const QString description = object.text(QAccessible::Description);
        text += QString(2 * depth, u' ') + role + u' ' + object.text(QAccessible::Name) +
                (description.isEmpty() ? QString() : u" ("_s + description + u')');
        while (text.endsWith(u' ')) {
            text.chop(1);
        }
        text += u'\n';
    }
    for (int index = 0; index < object.childCount(); ++index) {
        if (QAccessibleInterface* child = object.child(index)) {
            describe(*child, isArrangement ? depth : depth + 1, text);
        }
    }
}

}  // namespace

void expectAccessibleTree(const QWidget& widget, const QString& name) {
    QString text;
    describe(*QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget)), 0, text);
    QFile file(QStringLiteral(QUARLIN_ACCESSIBLE_TREES "/%1.txt").arg(name));
    if (qEnvironmentVariableIntValue("QUARLIN_UPDATE_BASELINES") != 0) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    EXPECT_EQ(text.toStdString(), file.readAll().toStdString());
}

}  // namespace quarlin::fixtures
