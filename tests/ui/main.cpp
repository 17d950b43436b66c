// Runs the tests of widgets in an application of Qt's.

#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
