// Ordered, owning collection of records of the stand-in persistence library.
#pragma once

#include <QString>

#include <typeinfo>
#include <vector>

class PIO_Metadata;

/// The records of one project or scene, in insertion order. The collection owns every
/// record added to it and deletes them with itself; a record is never held twice.
/// Beside each record it keeps the record's dynamic type, taken when it was added, so
/// that a search by type reads one short array instead of every record (a record's
/// type does not change; replacing one through an iterator is not allowed).
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
    /// The dynamic type of the record at `index` (0 to size() - 1), as it was added.
    std::type_info const& typeAt(int index) const;

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
