#include "host/base/whoami.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QString>

#include <cerrno>
#include <set>
#include <string>

namespace {

QString& storedName()
{
    static QString name;
    return name;
}

// The file the process runs from; asked of the system once, since every record made
// asks for its creator and a walk over a large project makes thousands of them.
QString const& executableFileName()
{
    static QString const name = [] {
        QFileInfo const self(QStringLiteral("/proc/self/exe"));
        if (self.isSymLink())
            return QFileInfo(self.symLinkTarget()).fileName();
        return QString::fromLocal8Bit(program_invocation_short_name);
    }();
    return name;
}

QString executableName()
{
    if (QCoreApplication::instance() && !QCoreApplication::applicationName().isEmpty())
        return QCoreApplication::applicationName();
    return executableFileName();
}

// Every name ever handed out stays alive, so callers may keep the pointer.
char const* intern(QString const& name)
{
    static std::set<std::string> names;
    return names.insert(name.toStdString()).first->c_str();
}

} // namespace

char const* whoami::progName()
{
    QString const& name = storedName();
    return intern(name.isEmpty() ? executableName() : name);
}

void whoami::setProgName(QString const& name)
{
    storedName() = name;
}
