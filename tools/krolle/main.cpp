// krolle: command-line front end over storyboard project files.
#include "KrolleTool.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <csignal>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

// Printing and drawing paint text, which takes fonts and so a QGuiApplication; no
// display is needed for it (the offscreen platform, unless the user chose one).
// Every other command stays on a QCoreApplication.
bool paints(int argc, char** argv)
{
    return argc >= 2 && (std::strcmp(argv[1], "pdf") == 0 || std::strcmp(argv[1], "sketches") == 0);
}

std::unique_ptr<QCoreApplication> application(int& argc, char** argv)
{
    if (!paints(argc, argv))
        return std::unique_ptr<QCoreApplication>(new QCoreApplication(argc, argv));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a user session (CI, root) Qt warns of a missing runtime folder; give it one
    // of the user's own, as it would make itself.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString dir = QDir::tempPath() + QStringLiteral("/runtime-krolle-") + QString::number(getuid());
        if (QDir().mkpath(dir)
            && QFile::setPermissions(dir, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner))
            qputenv("XDG_RUNTIME_DIR", dir.toLocal8Bit());
    }
    return std::unique_ptr<QCoreApplication>(new QGuiApplication(argc, argv));
}

} // namespace

int main(int argc, char** argv)
{
    // Past a file size limit a write must fail (EFBIG) and be reported, not kill the tool.
    std::signal(SIGXFSZ, SIG_IGN);
    const std::unique_ptr<QCoreApplication> app = application(argc, argv);
    KrolleTool tool;
    return tool.run(QCoreApplication::arguments().mid(1));
}
