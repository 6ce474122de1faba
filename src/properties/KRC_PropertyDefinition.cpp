#include "properties/KRC_PropertyDefinition.h"

class KRC_PropertyDefinitionPrivate
{
public:
    QString ldesc;
    QString sdesc;
    bool readOnly = false;
    bool internal = true;
};

KRC_PropertyDefinition::KRC_PropertyDefinition()
    : d(new KRC_PropertyDefinitionPrivate)
{
}

KRC_PropertyDefinition::KRC_PropertyDefinition(
    QString const& ldesc, QString const& sdesc, bool readOnly, bool internal)
    : d(new KRC_PropertyDefinitionPrivate { ldesc, sdesc, readOnly, internal })
{
}

KRC_PropertyDefinition::KRC_PropertyDefinition(KRC_PropertyDefinition const& other)
    : UT_ShareBaseSafe(other)
    , d(new KRC_PropertyDefinitionPrivate(*other.d))
{
}

KRC_PropertyDefinition& KRC_PropertyDefinition::operator=(KRC_PropertyDefinition const& other)
{
    *d = *other.d;
    return *this;
}

KRC_PropertyDefinition::~KRC_PropertyDefinition()
{
    delete d;
}

QString const& KRC_PropertyDefinition::ldesc() const
{
    return d->ldesc;
}

QString const& KRC_PropertyDefinition::sdesc() const
{
    return d->sdesc;
}

bool KRC_PropertyDefinition::isReadOnly() const
{
    return d->readOnly;
}

bool KRC_PropertyDefinition::isInternal() const
{
    return d->internal;
}

void KRC_PropertyDefinition::setLdesc(QString const& ldesc)
{
    d->ldesc = ldesc;
}

void KRC_PropertyDefinition::setSdesc(QString const& sdesc)
{
    d->sdesc = sdesc;
}

void KRC_PropertyDefinition::setReadOnly(bool readOnly)
{
    d->readOnly = readOnly;
}

void KRC_PropertyDefinition::setInternal(bool internal)
{
    d->internal = internal;
}
