#include "NameWriter.h"

#include "naming/KRC_ObjectName.h"

#include "host/Host.h"

namespace {

// The code hosts post for a renamed object.
const int kNameChangedCode = 18;

} // namespace

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

void NameWriter::announce(PIO_Metadata& record, TUSceneChangeManager* manager)
{
    record.emitChanged(manager, kNameChangedCode);
}
