// Turns the keywords of this library's records into empty records.
#pragma once

#include "host/persistence/HostPersistence.h"

/// The factory that the persistence library asks for each record entry it reads.
///
/// `createMeta` knows the keywords of this library's records and builds the record by
/// its factory route (name, creator, version as the entry states them; the version is
/// not checked). Any other keyword goes unchanged to the base factory, whose answer
/// (null included) is the result. Holds no data.
///
/// There is one instance: `createInstance()` makes it on its first call, registers it
/// with the persistence library and leaves its destruction to process exit. The host
/// calls it once at start-up, from its main thread, before any project is read; nothing
/// inside this library calls it. The guard is not locked.
class KRC_MetadataFactory : public PIO_MetadataFactory
{
public:
    static KRC_MetadataFactory* createInstance();

    /// A new record the caller owns, or what the base factory makes of the keyword.
    PIO_Metadata* createMeta(
        QString const& keyword, QString const& name, QString const& creator, QString const& version) override;

    ~KRC_MetadataFactory() override;

private:
    KRC_MetadataFactory();
    KRC_MetadataFactory(KRC_MetadataFactory const&) = delete;
    KRC_MetadataFactory& operator=(KRC_MetadataFactory const&) = delete;
};
