#include "metadata/KRC_MetadataReader.h"

class KRC_MetadataReaderPrivate
{
public:
    PIO_Metadata* record;
    KRC_MetadataReader::Release release;
};

KRC_MetadataReader::KRC_MetadataReader(PIO_Metadata* record, Release release)
    : d(new KRC_MetadataReaderPrivate { record, release })
{
}

KRC_MetadataReader::~KRC_MetadataReader()
{
    delete d;
}

bool KRC_MetadataReader::handleEndElement(PIO_ReadingContext&, QString const& elementName)
{
    switch (d->release) {
    case Release::AtFirstEnd:
        releaseRecord();
        break;
    case Release::AtOwnEnd:
        if (d->record && elementName == d->record->metaType())
            releaseRecord();
        break;
    case Release::Never:
        break;
    }
    return true;
}

QString KRC_MetadataReader::text(QXmlAttributes const& attributes, QString const& name)
{
    const QString value = attributes.value(name);
    return value.isNull() ? QStringLiteral("") : value;
}

int KRC_MetadataReader::uncheckedInt(QXmlAttributes const& attributes, QString const& name)
{
    return attributes.value(name).toInt(nullptr, 10);
}

double KRC_MetadataReader::uncheckedDouble(QXmlAttributes const& attributes, QString const& name)
{
    return attributes.value(name).toDouble();
}

bool KRC_MetadataReader::uncheckedBool(QXmlAttributes const& attributes, QString const& name)
{
    bool value = false;
    PO_Utils::parseBoolAttr(attributes.value(name), value);
    return value;
}

bool KRC_MetadataReader::checkedInt(QXmlAttributes const& attributes, QString const& name, int& value)
{
    bool ok = false;
    const int parsed = attributes.value(name).toInt(&ok, 10);
    if (ok)
        value = parsed;
    return ok;
}

bool KRC_MetadataReader::checkedDouble(QXmlAttributes const& attributes, QString const& name, double& value)
{
    bool ok = false;
    const double parsed = attributes.value(name).toDouble(&ok);
    if (ok)
        value = parsed;
    return ok;
}

bool KRC_MetadataReader::checkedBool(QXmlAttributes const& attributes, QString const& name, bool& value)
{
    return PO_Utils::parseBoolAttr(attributes.value(name), value);
}

PIO_Metadata* KRC_MetadataReader::record() const
{
    return d->record;
}

void KRC_MetadataReader::releaseRecord()
{
    d->record = nullptr;
}

UT_SharedPtr<PIO_XML::ComponentReader> KRC_MetadataReader::self()
{
    return UT_SharedPtr<PIO_XML::ComponentReader>(this);
}
