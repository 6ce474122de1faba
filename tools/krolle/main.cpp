// krolle: command-line front end over storyboard project files.
#include "KrolleTool.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    KrolleTool tool;
    return tool.run(QCoreApplication::arguments().mid(1));
}
