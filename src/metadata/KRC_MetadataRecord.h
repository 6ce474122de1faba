// The frame that every persisted record of this library derives from.
#pragma once

#include "host/persistence/HostPersistence.h"
#include "project/HandlePool.h"

#include <QString>

#include <type_traits>
#include <utility>

/// Shared frame of the library's records: identity, construction routes, private
/// state, copy, clone families and the record's XML element.
///
/// `Derived` is the record class itself (it must declare the statics
/// `kPIO_KRMETA_Keyword` and `kPIO_KRMETA_Version`), `Private` the class of its private
/// state, `Base` either `PIO_Metadata` or an abstract record base such as `KRC_ObjInfo`
/// whose constructor takes the four identity strings.
///
/// Construction routes (a record class brings them in with `using KRC_MetadataRecord::
/// KRC_MetadataRecord;` or forwards to them):
/// - from a name: keyword and version from the class, creator the running program; the
///   route of records this library makes;
/// - from name, creator, version: the factory's route, so that a record read from a
///   project keeps what the project states;
/// - default: the first route with a null name.
/// `metaType()` always equals the class's keyword.
///
/// The private state is owned: made by every constructor, deep-copied by the copy
/// constructor, assigned (after `Base::operator=`) by assignment, deleted by the
/// destructor. `Private` stays an incomplete type in the record's header: the member
/// definitions live in KRC_MetadataRecordImpl.h, which only the record's source file
/// includes, followed by `template class KRC_MetadataRecord<Derived, Private, Base>;`.
///
/// Records and their private states live in `Krolle::HandlePool` slabs, like the
/// handles: a pass over the panels reads one record of each panel and its private
/// state, and from slabs of one size those lie in the order they were made instead of
/// wherever the general heap had a hole between strings and other objects.
///
/// Threading: the host's thread, like the collections that hold records.
template <class Derived, class Private, class Base = PIO_Metadata> class KRC_MetadataRecord : public Base
{
public:
    static void* operator new(std::size_t size) { return Krolle::HandlePool::take(size); }
    static void operator delete(void* memory, std::size_t size) { Krolle::HandlePool::give(memory, size); }

    KRC_MetadataRecord();
    explicit KRC_MetadataRecord(QString const& name);
    KRC_MetadataRecord(QString const& name, QString const& creator, QString const& version);
    KRC_MetadataRecord(KRC_MetadataRecord const& other);
    KRC_MetadataRecord& operator=(KRC_MetadataRecord const& other);
    ~KRC_MetadataRecord() override;

protected:
    Private& priv() { return *m_private; }
    Private const& priv() const { return *m_private; }

    Derived& self() { return static_cast<Derived&>(*this); }
    Derived const& self() const { return static_cast<Derived const&>(*this); }

    /// Clone family that keeps the source's identity: built by the factory's route from
    /// this record's metaName, creator and version, then given all of its content.
    Derived* cloneKeepingIdentity() const
    {
        auto* copy = new Derived(this->metaName(), this->creator(), this->version());
        *copy = self();
        return copy;
    }

    /// Clone family of a record made afresh: built by the default route (null name, this
    /// program as creator, the class's current version), then given the content of this
    /// record's private state only. For records that derive straight from PIO_Metadata.
    template <class Self = Derived> Self* cloneAsFresh() const
    {
        static_assert(std::is_same<Base, PIO_Metadata>::value && std::is_same<Self, Derived>::value,
            "a fresh clone copies the private state only, which is all of a record's content only "
            "when the record derives straight from PIO_Metadata");
        auto* copy = new Derived();
        *static_cast<KRC_MetadataRecord*>(copy)->m_private = *m_private;
        return copy;
    }

    /// Writes the record's one element: opens it under the class's keyword, lets
    /// `writeContent(PO_XmlWriter&)` add the attributes and children in format order, and
    /// closes it.
    template <class Content>
    void writeRecordElement(PIO_WritingContext& context, Content&& writeContent) const
    {
        PO_XmlWriter& writer = context.writer();
        writer.beginElement(Derived::kPIO_KRMETA_Keyword);
        std::forward<Content>(writeContent)(writer);
        writer.endElement();
    }

private:
    Private* m_private;
};
