// Entry point of every test executable: a GUI application on the offscreen
// platform, since properties and rich text need QtGui's font machinery.
#include <QDir>
#include <QFile>
#include <unistd.h>
#include <QGuiApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Keep QStandardPaths quiet on machines without a user session (CI).
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString dir = QDir::tempPath() + QStringLiteral("/krolle-runtime-") + QString::number(getuid());
        QDir().mkpath(dir);
        QFile::setPermissions(dir, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", dir.toLocal8Bit());
    }
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
