#include "ToolEnvironment.h"

#include "ToolError.h"

#include "host/prefs/HostPrefs.h"
#include "metadata/KRC_MetadataFactory.h"

#include <QFileInfo>

const char* const ToolEnvironment::kPreferencesVariable = "KROLLE_PREFERENCES";

ToolEnvironment::ToolEnvironment()
    : m_preferences(new PR_Preference)
    , m_previous(tuPref)
{
    KRC_MetadataFactory::createInstance();
    const QString path = qEnvironmentVariable(kPreferencesVariable);
    if (!path.isEmpty()) {
        if (!QFileInfo::exists(path))
            throw ToolError::file(QStringLiteral("cannot read the preferences %1 named by %2: no such file")
                                      .arg(path, QString::fromLatin1(kPreferencesVariable)));
        if (!m_preferences->load(path))
            throw ToolError::file(
                QStringLiteral("cannot read the preferences named by %1: %2")
                    .arg(QString::fromLatin1(kPreferencesVariable), m_preferences->errorString()));
    }
    tuPref = m_preferences.get();
}

ToolEnvironment::~ToolEnvironment()
{
    tuPref = m_previous;
}
