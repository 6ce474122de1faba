// Generic typed records of the stand-in persistence library.
#pragma once

#include "host/persistence/PIO_Metadata.h"

#include <QVariant>

class PO_XmlWriter;

/// Base of the records that hold one plain value (string, int, double, bool), told
/// apart by their metaName. A fresh record holds no value and is not valid; setting a
/// value makes it valid. XML: `<keyword value="..."/>`, without the attribute while
/// there is no value. Reading is checked: a value attribute that does not parse leaves
/// the record as it was. Threading: host's thread.
class PIO_MetadataGeneric : public PIO_Metadata
{
public:
    ~PIO_MetadataGeneric() override;

    /// True once a value has been set or read.
    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    /// The base line, then "value=%1\n" (doubles with precision 6), or "no value\n".
    void dumpToString(QString& out) const override;

    /// The value, an invalid QVariant while there is none.
    QVariant const& variant() const;

protected:
    PIO_MetadataGeneric(
        QString const& metaType, QString const& metaName, QString const& creator, QString const& version);
    PIO_MetadataGeneric(PIO_MetadataGeneric const& other);
    PIO_MetadataGeneric& operator=(PIO_MetadataGeneric const& other);

    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
    void setVariant(QVariant const& value);

    /// Writes the held value as the attribute `name`.
    virtual void encodeValue(PO_XmlWriter& writer, QString const& name) const = 0;
    /// Stores the value that `text` stands for; false (nothing stored) if it stands for none.
    virtual bool decodeValue(QString const& text) = 0;

private:
    friend class PIO_MetadataGenericReader;
    class PIO_MetadataGenericPrivate;
    PIO_MetadataGenericPrivate* d;
};

/// A text value; keyword "string".
class PIO_MetadataString : public PIO_MetadataGeneric
{
public:
    static QString const kKeyword;
    static QString const kVersion;

    explicit PIO_MetadataString(QString const& metaName = QString());
    PIO_MetadataString(QString const& metaName, QString const& creator, QString const& version);

    PIO_Metadata* clone() const override;
    /// The text, null while there is no value.
    QString valueString() const;
    void setValue(QString const& value);

protected:
    void encodeValue(PO_XmlWriter& writer, QString const& name) const override;
    bool decodeValue(QString const& text) override;
};

/// An int value (0 while there is none); keyword "int".
class PIO_MetadataInt : public PIO_MetadataGeneric
{
public:
    static QString const kKeyword;
    static QString const kVersion;

    explicit PIO_MetadataInt(QString const& metaName = QString());
    PIO_MetadataInt(QString const& metaName, QString const& creator, QString const& version);

    PIO_Metadata* clone() const override;
    int valueInt() const;
    void setValue(int value);

protected:
    void encodeValue(PO_XmlWriter& writer, QString const& name) const override;
    bool decodeValue(QString const& text) override;
};

/// A double value (0 while there is none), saved bit-exact; keyword "double".
class PIO_MetadataDouble : public PIO_MetadataGeneric
{
public:
    static QString const kKeyword;
    static QString const kVersion;

    explicit PIO_MetadataDouble(QString const& metaName = QString());
    PIO_MetadataDouble(QString const& metaName, QString const& creator, QString const& version);

    PIO_Metadata* clone() const override;
    double valueDouble() const;
    void setValue(double value);

protected:
    void encodeValue(PO_XmlWriter& writer, QString const& name) const override;
    bool decodeValue(QString const& text) override;
};

/// A bool value (false while there is none); keyword "bool".
class PIO_MetadataBool : public PIO_MetadataGeneric
{
public:
    static QString const kKeyword;
    static QString const kVersion;

    explicit PIO_MetadataBool(QString const& metaName = QString());
    PIO_MetadataBool(QString const& metaName, QString const& creator, QString const& version);

    PIO_Metadata* clone() const override;
    bool valueBool() const;
    void setValue(bool value);

protected:
    void encodeValue(PO_XmlWriter& writer, QString const& name) const override;
    bool decodeValue(QString const& text) override;
};
