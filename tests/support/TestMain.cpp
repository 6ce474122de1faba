// Entry point of every test executable: a GUI application on the offscreen
// platform, since properties and rich text need QtGui's font machinery.
#include <QGuiApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
