// Test helper: a fresh preference store installed as the process-wide `tuPref`.
#pragma once

#include "host/prefs/HostPrefs.h"

#include <QString>

/// Installs an empty PR_Preference as `tuPref` for the life of the scope and puts
/// back whatever was there before (usually null).
class ScopedPreferences
{
public:
    ScopedPreferences();
    ~ScopedPreferences();
    ScopedPreferences(ScopedPreferences const&) = delete;
    ScopedPreferences& operator=(ScopedPreferences const&) = delete;

    PR_Preference& store() { return m_store; }
    PR_Preference* operator->() { return &m_store; }

private:
    PR_Preference m_store;
    PR_Preference* m_previous;
};
