// Helpers of the metadata tests: XML documents of records and reading them back.
#pragma once

#include "host/persistence/HostPersistence.h"
#include "metadata/KRC_MetadataFactory.h"
#include "naming/KRC_ObjectName.h"

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <memory>

namespace metatest {

/// A document holding one entry of `type` with the given identity attributes (already
/// formatted, e.g. `creator="x" version="1.0"`) and the entry's inner XML.
inline QByteArray entryDocument(QString const& type, QString const& identity, QString const& inner)
{
    return QStringLiteral("<metadatas><metadata type=\"%1\" %2>%3</metadata></metadatas>")
        .arg(type, identity, inner)
        .toUtf8();
}

/// Reads `document` through the persistence driver with this library's factory.
inline std::unique_ptr<PIO_Metadatas> readDocument(QByteArray const& document, QString* error = nullptr)
{
    KRC_MetadataFactory::createInstance();
    auto metas = std::make_unique<PIO_Metadatas>();
    if (!PIO_MetadatasXml::fromDocument(document, *metas, error))
        return nullptr;
    return metas;
}

/// The first record of `metas`, cast to T (null when absent or of another type).
template <class T> T* first(PIO_Metadatas* metas)
{
    return metas && !metas->isEmpty() ? dynamic_cast<T*>(*metas->begin()) : nullptr;
}

/// Reads one entry of T's type holding `inner` (identity attributes as for
/// entryDocument) and answers its record, or null; `holder` keeps the collection.
template <class T>
T* readRecord(
    QString const& inner, std::unique_ptr<PIO_Metadatas>& holder, QString const& identity = QString())
{
    holder = readDocument(entryDocument(T::kPIO_KRMETA_Keyword, identity, inner));
    return first<T>(holder.get());
}

/// Sets a name field's text and flag at once.
inline void setName(KRC_ObjectName& name, char const* value, int flag)
{
    name.setValue(QString::fromLatin1(value));
    name.setFlag(flag);
}

/// The record's dump: its identity and every field, as text.
inline QString dumpOf(PIO_Metadata const& record)
{
    QString out;
    record.dumpToString(out);
    return out;
}

/// Checks that clone, copy and assignment all give the source's identity and every
/// field (a dump holds both, so equal dumps mean equal records), and that changing a
/// copy leaves the clone alone.
template <class Record> void expectFaithfulCopies(Record const& source)
{
    std::unique_ptr<PIO_Metadata> cloned(source.clone());
    ASSERT_TRUE(dynamic_cast<Record*>(cloned.get()));
    Record copied(source);
    Record assigned;
    assigned = source;
    for (PIO_Metadata const* copy : { static_cast<PIO_Metadata const*>(cloned.get()),
             static_cast<PIO_Metadata const*>(&copied), static_cast<PIO_Metadata const*>(&assigned) })
        EXPECT_EQ(dumpOf(source), dumpOf(*copy));
    copied = Record();
    assigned = Record();
    EXPECT_EQ(dumpOf(*cloned), dumpOf(source));
}

/// Writes `record` (a copy, which the temporary collection owns) and reads it back.
template <class T> std::unique_ptr<PIO_Metadatas> roundTrip(T const& record, QByteArray* written = nullptr)
{
    PIO_Metadatas source;
    source.add(new T(record));
    const QByteArray document = PIO_MetadatasXml::toDocument(source);
    if (written)
        *written = document;
    return readDocument(document);
}

} // namespace metatest
