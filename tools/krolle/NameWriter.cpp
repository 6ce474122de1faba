#include "NameWriter.h"

#include "naming/KRC_ObjectName.h"

void NameWriter::set(KRC_ObjectName& name, const QString& value)
{
    name.setValue(value.isEmpty() ? QString() : value);
    if (value.isEmpty())
        name.setFlag(name.flag() & ~KRC_ObjectName::kCustom);
    else
        name.setFlag(name.flag() | KRC_ObjectName::kCustom);
}

void NameWriter::copy(KRC_ObjectName& name, const KRC_ObjectName& from)
{
    set(name, from.isCustom() ? from.value() : QString());
}
