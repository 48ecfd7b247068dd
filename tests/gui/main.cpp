#include "platform/widgets/Application.h"
#include "widgets/Look.h"

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    platform::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    widgets::applyLook(application);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
