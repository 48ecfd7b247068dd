#include "session/widgets/Look.h"

#include <QApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    session::applyLook(application);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
