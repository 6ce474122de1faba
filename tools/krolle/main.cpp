// krolle: command-line front end over storyboard project files.
#include "KrolleTool.h"

#include <QCoreApplication>

#include <csignal>

int main(int argc, char** argv)
{
    // Past a file size limit a write must fail (EFBIG) and be reported, not kill the tool.
    std::signal(SIGXFSZ, SIG_IGN);
    QCoreApplication application(argc, argv);
    KrolleTool tool;
    return tool.run(QCoreApplication::arguments().mid(1));
}
