// krolle: command-line front end over storyboard project files.
#include "KrolleTool.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <csignal>
#include <cstring>
#include <memory>

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
