#include "host/persistence/PIO_Metadata.h"

class PIO_Metadata::PIO_MetadataPrivate
{
public:
    QString metaType;
    QString metaName;
    QString creator;
    QString version;
};

PIO_Metadata::PIO_Metadata(
    QString const& metaType, QString const& metaName, QString const& creator, QString const& version)
    : d(new PIO_MetadataPrivate { metaType, metaName, creator, version })
{
}

PIO_Metadata::PIO_Metadata(PIO_Metadata const& other)
    : d(new PIO_MetadataPrivate(*other.d))
{
}

PIO_Metadata& PIO_Metadata::operator=(PIO_Metadata const& other)
{
    *d = *other.d;
    return *this;
}

PIO_Metadata::~PIO_Metadata()
{
    delete d;
}

bool PIO_Metadata::isValid() const
{
    return true;
}

void PIO_Metadata::dumpToString(QString& out) const
{
    out += QStringLiteral("Metadata type=%1, name=%2, creator=%3, version=%4\n")
               .arg(d->metaType, d->metaName, d->creator, d->version);
}

QString const& PIO_Metadata::metaType() const
{
    return d->metaType;
}

QString const& PIO_Metadata::metaName() const
{
    return d->metaName;
}

QString const& PIO_Metadata::creator() const
{
    return d->creator;
}

QString const& PIO_Metadata::version() const
{
    return d->version;
}

void PIO_Metadata::emitChanged(TUSceneChangeManager* manager, int code)
{
    if (manager)
        PIO_postMetadataChange(manager, this, code);
}
