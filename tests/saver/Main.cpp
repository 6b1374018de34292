#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
