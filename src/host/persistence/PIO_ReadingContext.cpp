#include "host/persistence/PIO_ReadingContext.h"

#include <QXmlStreamReader>

class PIO_ReadingContext::PIO_ReadingContextPrivate
{
public:
    QXmlStreamReader const& stream;
    PIO_Metadata* meta;
};

PIO_ReadingContext::PIO_ReadingContext(QXmlStreamReader const& stream, PIO_Metadata* meta)
    : d(new PIO_ReadingContextPrivate { stream, meta })
{
}

PIO_ReadingContext::~PIO_ReadingContext()
{
    delete d;
}

qint64 PIO_ReadingContext::lineNumber() const
{
    return d->stream.lineNumber();
}

qint64 PIO_ReadingContext::columnNumber() const
{
    return d->stream.columnNumber();
}

PIO_Metadata* PIO_ReadingContext::metadata() const
{
    return d->meta;
}
