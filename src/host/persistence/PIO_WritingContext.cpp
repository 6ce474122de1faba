#include "host/persistence/PIO_WritingContext.h"

#include <QHash>

class PIO_WritingContext::PIO_WritingContextPrivate
{
public:
    explicit PIO_WritingContextPrivate(PO_XmlWriter& writer)
        : writer(writer)
    {
    }

    PO_XmlWriter& writer;
    QHash<QString, bool> flags;
};

PIO_WritingContext::PIO_WritingContext(PO_XmlWriter& writer)
    : d(new PIO_WritingContextPrivate(writer))
{
}

PIO_WritingContext::~PIO_WritingContext()
{
    delete d;
}

PO_XmlWriter& PIO_WritingContext::writer() const
{
    return d->writer;
}

void PIO_WritingContext::SetAttribute(QString const& name, bool value)
{
    d->flags.insert(name, value);
}

bool PIO_WritingContext::GetAttribute(QString const& name) const
{
    return d->flags.value(name, false);
}
