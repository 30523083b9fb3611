#include <QCoreApplication>
#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    return RUN_ALL_TESTS();
}
