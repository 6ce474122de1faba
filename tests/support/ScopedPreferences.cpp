#include "support/ScopedPreferences.h"

ScopedPreferences::ScopedPreferences()
    : m_previous(tuPref)
{
    tuPref = &m_store;
}

ScopedPreferences::~ScopedPreferences()
{
    tuPref = m_previous;
}
