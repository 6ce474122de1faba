#include "host/persistence/PIO_MetadataFactory.h"

#include "host/persistence/PIO_MetadataGeneric.h"

namespace {

PIO_MetadataFactory*& registeredFactory()
{
    static PIO_MetadataFactory* factory = nullptr;
    return factory;
}

class BaseFactory : public PIO_MetadataFactory
{
};

template <class Record>
PIO_Metadata* createIf(
    QString const& keyword, QString const& name, QString const& creator, QString const& version)
{
    return keyword == Record::kKeyword ? new Record(name, creator, version) : nullptr;
}

} // namespace

PIO_MetadataFactory::PIO_MetadataFactory() = default;

PIO_MetadataFactory::~PIO_MetadataFactory()
{
    if (registeredFactory() == this)
        registeredFactory() = nullptr;
}

PIO_Metadata* PIO_MetadataFactory::createMeta(
    QString const& keyword, QString const& name, QString const& creator, QString const& version)
{
    using Creator = PIO_Metadata* (*)(QString const&, QString const&, QString const&, QString const&);
    static Creator const creators[] = { &createIf<PIO_MetadataString>, &createIf<PIO_MetadataInt>,
        &createIf<PIO_MetadataDouble>, &createIf<PIO_MetadataBool> };
    for (Creator create : creators) {
        if (PIO_Metadata* meta = create(keyword, name, creator, version))
            return meta;
    }
    return nullptr;
}

void PIO_MetadataFactory::registerImpl(PIO_MetadataFactory* factory)
{
    registeredFactory() = factory;
}

PIO_MetadataFactory* PIO_MetadataFactory::registered()
{
    return registeredFactory();
}

PIO_MetadataFactory* PIO_MetadataFactory::instance()
{
    static BaseFactory base;
    return registeredFactory() ? registeredFactory() : &base;
}
