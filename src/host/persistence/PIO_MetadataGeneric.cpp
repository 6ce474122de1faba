#include "host/persistence/PIO_MetadataGeneric.h"

#include "host/base/whoami.h"
#include "host/persistence/PIO_WritingContext.h"
#include "host/persistence/PIO_XML_ComponentReader.h"
#include "host/persistence/PO_Utils.h"
#include "host/persistence/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace {

QString const valueAttribute = QStringLiteral("value");
QString const genericVersion = QStringLiteral("1.0");

QString dumpText(QVariant const& value)
{
    switch (value.type()) {
    case QVariant::Double:
        return QString::number(value.toDouble());
    case QVariant::Bool:
        return PO_Utils::boolToString(value.toBool());
    default:
        return value.toString();
    }
}

} // namespace

class PIO_MetadataGeneric::PIO_MetadataGenericPrivate
{
public:
    QVariant value;
};

// Fills a generic record from its one element; other elements are skipped.
class PIO_MetadataGenericReader : public PIO_XML::ComponentReader
{
public:
    explicit PIO_MetadataGenericReader(PIO_MetadataGeneric* meta)
        : m_meta(meta)
    {
    }

    UT_SharedPtr<ComponentReader> handleStartElement(
        PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes) override
    {
        int const index = attributes.index(valueAttribute);
        if (elementName == m_meta->metaType() && index >= 0)
            m_meta->decodeValue(attributes.value(index));
        return UT_SharedPtr<ComponentReader>(this);
    }

private:
    PIO_MetadataGeneric* m_meta;
};

PIO_MetadataGeneric::PIO_MetadataGeneric(
    QString const& metaType, QString const& metaName, QString const& creator, QString const& version)
    : PIO_Metadata(metaType, metaName, creator, version)
    , d(new PIO_MetadataGenericPrivate)
{
}

PIO_MetadataGeneric::PIO_MetadataGeneric(PIO_MetadataGeneric const& other)
    : PIO_Metadata(other)
    , d(new PIO_MetadataGenericPrivate(*other.d))
{
}

PIO_MetadataGeneric& PIO_MetadataGeneric::operator=(PIO_MetadataGeneric const& other)
{
    PIO_Metadata::operator=(other);
    *d = *other.d;
    return *this;
}

PIO_MetadataGeneric::~PIO_MetadataGeneric()
{
    delete d;
}

bool PIO_MetadataGeneric::isValid() const
{
    return d->value.isValid();
}

PIO_XML::ComponentReader* PIO_MetadataGeneric::componentReader()
{
    return new PIO_MetadataGenericReader(this);
}

void PIO_MetadataGeneric::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    out += isValid() ? QStringLiteral("value=%1\n").arg(dumpText(d->value)) : QStringLiteral("no value\n");
}

QVariant const& PIO_MetadataGeneric::variant() const
{
    return d->value;
}

void PIO_MetadataGeneric::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    PO_XmlWriter& writer = context.writer();
    writer.beginElement(metaType());
    if (isValid())
        encodeValue(writer, valueAttribute);
    writer.endElement();
}

void PIO_MetadataGeneric::setVariant(QVariant const& value)
{
    d->value = value;
}

// The four value types differ only in their keyword, conversion and attribute form.
#define PIO_GENERIC_CONSTRUCTORS(Class, keyword)                                                             \
    QString const Class::kKeyword = QStringLiteral(keyword);                                                 \
    QString const Class::kVersion = genericVersion;                                                          \
    Class::Class(QString const& metaName)                                                                    \
        : PIO_MetadataGeneric(kKeyword, metaName, QString::fromUtf8(whoami::progName()), kVersion)           \
    {                                                                                                        \
    }                                                                                                        \
    Class::Class(QString const& metaName, QString const& creator, QString const& version)                    \
        : PIO_MetadataGeneric(kKeyword, metaName, creator, version)                                          \
    {                                                                                                        \
    }                                                                                                        \
    PIO_Metadata* Class::clone() const                                                                       \
    {                                                                                                        \
        return new Class(*this);                                                                             \
    }

PIO_GENERIC_CONSTRUCTORS(PIO_MetadataString, "string")
PIO_GENERIC_CONSTRUCTORS(PIO_MetadataInt, "int")
PIO_GENERIC_CONSTRUCTORS(PIO_MetadataDouble, "double")
PIO_GENERIC_CONSTRUCTORS(PIO_MetadataBool, "bool")

#undef PIO_GENERIC_CONSTRUCTORS

QString PIO_MetadataString::valueString() const
{
    return variant().toString();
}

void PIO_MetadataString::setValue(QString const& value)
{
    setVariant(value);
}

void PIO_MetadataString::encodeValue(PO_XmlWriter& writer, QString const& name) const
{
    writer.encodeStringAttr(name, valueString());
}

bool PIO_MetadataString::decodeValue(QString const& text)
{
    setValue(text);
    return true;
}

int PIO_MetadataInt::valueInt() const
{
    return variant().toInt();
}

void PIO_MetadataInt::setValue(int value)
{
    setVariant(value);
}

void PIO_MetadataInt::encodeValue(PO_XmlWriter& writer, QString const& name) const
{
    writer.encodeIntAttr(name, valueInt());
}

bool PIO_MetadataInt::decodeValue(QString const& text)
{
    bool ok = false;
    int const value = text.toInt(&ok);
    if (ok)
        setValue(value);
    return ok;
}

double PIO_MetadataDouble::valueDouble() const
{
    return variant().toDouble();
}

void PIO_MetadataDouble::setValue(double value)
{
    setVariant(value);
}

void PIO_MetadataDouble::encodeValue(PO_XmlWriter& writer, QString const& name) const
{
    writer.encodeDoubleAttr(name, valueDouble());
}

bool PIO_MetadataDouble::decodeValue(QString const& text)
{
    bool ok = false;
    double const value = text.toDouble(&ok);
    if (ok)
        setValue(value);
    return ok;
}

bool PIO_MetadataBool::valueBool() const
{
    return variant().toBool();
}

void PIO_MetadataBool::setValue(bool value)
{
    setVariant(value);
}

void PIO_MetadataBool::encodeValue(PO_XmlWriter& writer, QString const& name) const
{
    writer.encodeBoolAttr(name, valueBool());
}

bool PIO_MetadataBool::decodeValue(QString const& text)
{
    bool value = false;
    bool const ok = PO_Utils::parseBoolAttr(text, value);
    if (ok)
        setValue(value);
    return ok;
}
