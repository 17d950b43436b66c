// The test program of what needs an application object: services of the display and of the session bus.
#include "display_test.h"

#include <QGuiApplication>

#include <cstring>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], tandrel::kHoldForever) == 0) {
        const QCoreApplication application(argc, argv);
        return tandrel::holdForever();
    }
    if (argc > 1 && std::strcmp(argv[1], tandrel::kHoldAndLeave) == 0) {
        const QCoreApplication application(argc, argv);
        return tandrel::holdAndLeave();
    }
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
