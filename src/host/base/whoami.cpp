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

QString executableName()
{
    if (QCoreApplication::instance() && !QCoreApplication::applicationName().isEmpty())
        return QCoreApplication::applicationName();
    QFileInfo const self(QStringLiteral("/proc/self/exe"));
    if (self.isSymLink())
        return QFileInfo(self.symLinkTarget()).fileName();
    return QString::fromLocal8Bit(program_invocation_short_name);
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
