// Factory that turns a keyword read from XML into an empty record.
#pragma once

#include <QString>

class PIO_Metadata;

/// Makes the record for each entry that the persistence library reads.
///
/// One factory is registered at a time (`registerImpl`); a library with records of its
/// own derives from this class, answers its keywords and hands every other keyword to
/// this base `createMeta`, which builds the generic records ("string", "int", "double",
/// "bool") and answers null for anything else. The registration does not own the
/// factory; a factory unregisters itself when destroyed. Threading: register from the
/// host's thread before any read.
class PIO_MetadataFactory
{
public:
    /// A new record the caller owns, or null for a keyword nobody knows.
    virtual PIO_Metadata* createMeta(
        QString const& keyword, QString const& name, QString const& creator, QString const& version);
    virtual ~PIO_MetadataFactory();

    /// Makes `factory` the one asked for every entry; null goes back to the base factory.
    static void registerImpl(PIO_MetadataFactory* factory);
    /// The registered factory, or null when none is.
    static PIO_MetadataFactory* registered();
    /// The registered factory, or the base factory when none is.
    static PIO_MetadataFactory* instance();

protected:
    PIO_MetadataFactory();
    PIO_MetadataFactory(PIO_MetadataFactory const&) = default;
    PIO_MetadataFactory& operator=(PIO_MetadataFactory const&) = default;
};
