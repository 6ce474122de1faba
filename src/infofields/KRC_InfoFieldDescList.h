// The records of field definitions: the base of the project's and the panels' lists.
#pragma once

#include "host/persistence/HostPersistence.h"
#include "infofields/KRC_InfoFieldDesc.h"

#include <list>
#include <map>
#include <set>

using KRC_InfoFieldDescList_t = std::list<KRC_InfoFieldDesc>;

/// An ordered list of field definitions (in the user's order) kept as a record in the
/// project's metadata. The two concrete records, `KRC_ProjectInfoFieldDescList` and
/// `KRC_PanelInfoFieldDescList`, differ only in their keyword; everything else lives
/// here. Ids are allotted upward from 0 (`getUniqId`); `INT_MAX` and `INT_MIN` have the
/// meanings of InfoFieldIds.h.
///
/// XML: nothing for an empty list; otherwise an element named by the metaType holding
/// one "field" per entry with "id", "name", "type" ("IMAGE" or "TEXT"), "comment"
/// ("true", only with the comment bit) and "size" (only for minimum and maximum). The
/// reader does not read "size" back: every definition comes back with the default size.
/// Dump: "Field: name=.., type=.., id=.., size=..\n" per entry, "EMPTY\n" for none.
/// Threading: the host's thread.
class KRC_InfoFieldDescList : public PIO_Metadata, public KRC_InfoFieldDescList_t
{
public:
    KRC_InfoFieldDescList(
        QString const& metaType, QString const& metaName, QString const& creator, QString const& version);
    KRC_InfoFieldDescList(KRC_InfoFieldDescList const& other);
    KRC_InfoFieldDescList& operator=(KRC_InfoFieldDescList const& other);
    ~KRC_InfoFieldDescList() override;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override = 0;
    void dumpToString(QString& out) const override;

    iterator find(int id);
    const_iterator find(int id) const;
    /// The first entry with that name; the end for an empty name.
    iterator find(QString const& name);
    const_iterator find(QString const& name) const;
    bool contain(int id) const;
    bool contain(QString const& name) const;
    /// Appends without any check: two entries may share an id, and `find` gives the first.
    void add(KRC_InfoFieldDesc::Type type, int id, QString const& name, KRC_InfoFieldDesc::Size size);
    bool remove(std::set<int> const& ids);
    bool remap(std::map<int, int> const& ids);
    void getIds(std::set<int>& ids) const;
    /// Merges the ids into `ids`, keeping a local arrangement it holds.
    void getIds(std::list<int>& ids) const;
    /// The smallest id from 0 up that no entry has.
    int getUniqId() const;
    /// Moves `id` in front of `beforeId`; answers the `beforeId` that moves it back.
    int move(int id, int beforeId);

protected:
    /// The list itself, for the id rules, which take the std::list.
    KRC_InfoFieldDescList_t& entries() { return *this; }
    KRC_InfoFieldDescList_t const& entries() const { return *this; }

    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};
