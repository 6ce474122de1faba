// Ordered, owning collection of records of the stand-in persistence library.
#pragma once

#include <QString>

#include <vector>

class PIO_Metadata;

/// The records of one project or scene, in insertion order. The collection owns every
/// record added to it and deletes them with itself; a record is never held twice.
/// Not copyable (records have one owner). Threading: host's thread.
class PIO_Metadatas
{
public:
    using iterator = std::vector<PIO_Metadata*>::iterator;
    using const_iterator = std::vector<PIO_Metadata*>::const_iterator;

    PIO_Metadatas();
    ~PIO_Metadatas();
    PIO_Metadatas(PIO_Metadatas const&) = delete;
    PIO_Metadatas& operator=(PIO_Metadatas const&) = delete;

    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;
    int size() const;
    bool isEmpty() const;

    /// Takes ownership and appends. A null record, or one already held, is ignored.
    void add(PIO_Metadata* meta);
    /// True when this exact record (by address) is held.
    bool contains(PIO_Metadata const* meta) const;
    /// The first record of type `metaType` answering to `name`: a null `name` takes any
    /// record of the type; otherwise a named record answers to its metaName, and a
    /// record without a name answers to its own type (so ("sceneInfo", "sceneInfo")
    /// finds the nameless "sceneInfo" record). Null when there is none.
    PIO_Metadata* metadata(QString const& metaType, QString const& name) const;
    /// Hands `meta` back to the caller without deleting it; false if it is not held.
    bool take(PIO_Metadata* meta);
    /// Deletes every record.
    void clear();

private:
    class PIO_MetadatasPrivate;
    PIO_MetadatasPrivate* d;
};
