#include "naming/KRC_ObjectName.h"

class KRC_ObjectNamePrivate
{
public:
    QString value;
    int flag = 0;
};

KRC_ObjectName::KRC_ObjectName()
    : d(new KRC_ObjectNamePrivate)
{
}

KRC_ObjectName::KRC_ObjectName(KRC_ObjectName const& other)
    : d(new KRC_ObjectNamePrivate(*other.d))
{
}

KRC_ObjectName& KRC_ObjectName::operator=(KRC_ObjectName const& other)
{
    *d = *other.d;
    return *this;
}

KRC_ObjectName::~KRC_ObjectName()
{
    delete d;
}

QString const& KRC_ObjectName::value() const
{
    return d->value;
}

void KRC_ObjectName::setValue(QString const& value)
{
    d->value = value;
}

int KRC_ObjectName::flag() const
{
    return d->flag;
}

int KRC_ObjectName::setFlag(int flag)
{
    const int previous = d->flag;
    d->flag = flag;
    return previous;
}

bool KRC_ObjectName::isCustom() const
{
    return (d->flag & kCustom) != 0;
}

bool KRC_ObjectName::isAuto() const
{
    return !isCustom();
}

bool KRC_ObjectName::isLocked() const
{
    return (d->flag & kLocked) != 0;
}
