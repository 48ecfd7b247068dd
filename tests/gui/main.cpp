#include "platform/widgets/Application.h"
#include "widgets/Look.h"

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    // Some orders of events only a real screen with a window manager has: onScreen.sh brings one.
    if (qEnvironmentVariableIsEmpty("CALIDORA_ON_SCREEN"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    platform::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    widgets::applyLook(application);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
