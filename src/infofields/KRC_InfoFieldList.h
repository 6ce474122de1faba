// The values of the user fields of the project or of one panel.
#pragma once

#include "host/base/UT_SharedPtr.h"
#include "infofields/KRC_InfoField.h"
#include "metadata/KRC_MetadataRecord.h"

#include <list>
#include <map>
#include <set>
#include <vector>

class KRC_ExtraInfoFieldDescList;
class KRC_InfoFieldDescList;
class KRC_InfoFieldImage;
class KRC_InfoFieldListPrivate;

using KRC_InfoFieldList_t = std::list<UT_SharedPtr<KRC_InfoField>>;

/// The ordered values of one owner (the project, or one panel's scene), a record in the
/// owner's metadata. Global values (id 0 and up) answer to a definition and carry no
/// name; local values (negative id, allotted downward from -1 by `getUniqId`) carry
/// their own. `INT_MAX` and `INT_MIN` have the meanings of InfoFieldIds.h.
///
/// Copy and assignment share the field objects between the two lists; `clone()` is
/// deep. A removed field keeps the id of the field that followed it (`nextId`), so
/// that the removal can be undone.
///
/// Keyword "infoFields", version "1.0". XML: nothing for an empty list; otherwise
/// "infoFields" holding one "field" per non-null entry with "id", "name" (local fields
/// only), "dragName" (the field's name, only when the writing context has "for_drag"),
/// "type", "comment", "size" (minimum and maximum only) and "value" (carriage returns
/// removed). The reader does not read "size"; it turns a plain text value of a kind 1
/// field into rich text (see the design note for what that asks of the host), and an
/// "id" of `INT_MAX` gets a new local id. Dump: "Field: name=.., type=.., size=..,
/// id=.., value=..\n" per non-null entry, "EMPTY\n" for none. Threading: the host's
/// thread.
class KRC_InfoFieldList : public KRC_MetadataRecord<KRC_InfoFieldList, KRC_InfoFieldListPrivate>,
                          public KRC_InfoFieldList_t
{
public:
    using Type = KRC_InfoFieldDesc::Type;
    using Size = KRC_InfoFieldDesc::Size;

    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    iterator find(int id);
    const_iterator find(int id) const;
    /// The entry of `id`, searched from the end.
    reverse_iterator rfind(int id);
    bool contain(int id) const;
    /// The field of `id`, null when there is none.
    UT_SharedPtr<KRC_InfoField> getInfoField(int id) const;
    /// The image fields that hold a key, global and local, in list order: the pictures
    /// of the owner, good while the list keeps them.
    std::vector<KRC_InfoFieldImage const*> images() const;

    /// Inserts the field itself in front of `beforeId`; answers its id.
    int insertInfoField(UT_SharedPtr<KRC_InfoField> field, int beforeId);
    /// Makes and inserts a field: a new local id for `INT_MAX`; no name for a global id;
    /// an image for kind 2 exactly, a text for any other kind (so a comment bit is not
    /// kept on the value). Answers the id.
    int insertInfoField(Type type, QString const& name, int id, Size size, QString const& value, int beforeId);
    int insertInfoField(Type type, QString const& name, int id, QString const& value, int beforeId);
    int insertInfoField(Type type, int id, QString const& value, int beforeId);
    int insertInfoField(Type type, int id, int beforeId);
    /// Takes the field out, with `nextId` set; null for an unknown id.
    UT_SharedPtr<KRC_InfoField> removeInfoField(int id);
    bool remove(std::set<int> const& ids);
    bool removeInfoField(std::set<int> const& ids);
    int move(int id, int beforeId);
    int moveInfoField(int id, int beforeId);
    bool remap(std::map<int, int> const& ids);
    bool remapInfoField(std::map<int, int> const& ids);
    /// Renames a local field; `INT_MAX` for a global or unknown id.
    int renameInfoField(int id, QString const& name, QString& oldName);
    int renameInfoField(int id, QString const& name);
    void getIds(std::set<int>& ids) const;
    void getIds(std::list<int>& ids) const;
    /// The first of -1, -2, ... that no entry has.
    int getUniqId() const;
    /// For a local id, the id of the nearest global field in front of it (the first
    /// entry's id when there is none); a global id, `INT_MAX`, `INT_MIN` and an unknown
    /// id come back as they are.
    int getPreviousGlobalInfoField(int id) const;

    /// Empties the list and puts one empty value per definition, in their order.
    void reserveInfoFields(KRC_InfoFieldDescList const& descs);
    /// Adds an empty local value per extra definition, in front of its position.
    void reserveExtraInfoFields(KRC_ExtraInfoFieldDescList const& extras);
    /// Appends the layout of the named local fields to `out` (not cleared), each with
    /// the id of the nearest global field behind it, `INT_MAX` when none follows.
    void copyExtra(KRC_ExtraInfoFieldDescList* out) const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;

private:
    KRC_InfoFieldList_t& entries() { return *this; }
    KRC_InfoFieldList_t const& entries() const { return *this; }
};
