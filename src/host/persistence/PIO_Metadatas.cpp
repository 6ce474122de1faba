#include "host/persistence/PIO_Metadatas.h"

#include "host/persistence/PIO_Metadata.h"

#include <algorithm>

class PIO_Metadatas::PIO_MetadatasPrivate
{
public:
    std::vector<PIO_Metadata*> records;
    // typeid of each record, in step with `records`.
    std::vector<std::type_info const*> types;
};

namespace {

bool answersTo(PIO_Metadata const& meta, QString const& metaType, QString const& name)
{
    if (meta.metaType() != metaType)
        return false;
    if (name.isNull())
        return true;
    return meta.metaName().isEmpty() ? name == metaType : meta.metaName() == name;
}

} // namespace

PIO_Metadatas::PIO_Metadatas()
    : d(new PIO_MetadatasPrivate)
{
}

PIO_Metadatas::~PIO_Metadatas()
{
    clear();
    delete d;
}

PIO_Metadatas::iterator PIO_Metadatas::begin()
{
    return d->records.begin();
}

PIO_Metadatas::iterator PIO_Metadatas::end()
{
    return d->records.end();
}

PIO_Metadatas::const_iterator PIO_Metadatas::begin() const
{
    return d->records.cbegin();
}

PIO_Metadatas::const_iterator PIO_Metadatas::end() const
{
    return d->records.cend();
}

int PIO_Metadatas::size() const
{
    return int(d->records.size());
}

bool PIO_Metadatas::isEmpty() const
{
    return d->records.empty();
}

void PIO_Metadatas::add(PIO_Metadata* meta)
{
    if (meta && !contains(meta)) {
        d->records.push_back(meta);
        d->types.push_back(&typeid(*meta));
    }
}

std::type_info const& PIO_Metadatas::typeAt(int index) const
{
    return *d->types[std::size_t(index)];
}

bool PIO_Metadatas::contains(PIO_Metadata const* meta) const
{
    return std::find(d->records.begin(), d->records.end(), meta) != d->records.end();
}

PIO_Metadata* PIO_Metadatas::metadata(QString const& metaType, QString const& name) const
{
    auto const found = std::find_if(d->records.begin(), d->records.end(),
        [&](PIO_Metadata const* meta) { return answersTo(*meta, metaType, name); });
    return found == d->records.end() ? nullptr : *found;
}

bool PIO_Metadatas::take(PIO_Metadata* meta)
{
    auto const found = std::find(d->records.begin(), d->records.end(), meta);
    if (found == d->records.end())
        return false;
    d->types.erase(d->types.begin() + (found - d->records.begin()));
    d->records.erase(found);
    return true;
}

void PIO_Metadatas::clear()
{
    std::vector<PIO_Metadata*> records;
    records.swap(d->records);
    d->types.clear();
    for (PIO_Metadata* meta : records)
        delete meta;
}
