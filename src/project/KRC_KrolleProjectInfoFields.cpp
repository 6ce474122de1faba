// The project's info fields: definitions and values kept in step.
#include "project/KRC_KrolleProject.h"

#include "infofields/KRC_HiddenInfoFieldList.h"
#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"
#include "metadata/PIO_MetadataAccess.h"
#include "project/Panel_t.h"

#include <algorithm>

namespace {

/// The codes that the info field records report with, to the engine's change manager.
enum ChangeCode : int
{
    kAdded = 3, ///< a field added, or a name shown
    kRemapped = 4,
    kRenamed = 5,
    kRemoved = 6, ///< a field removed, or a name hidden
    kMoved = 7
};

/// The one record of type T in the project's metadata, added when missing; null
/// without a project.
template <class T> T* projectRecord(SC_Project* project)
{
    return PIO_MetadataAccess<T>::findOrCreate(project ? project->metadatas() : nullptr, QString());
}

/// Runs `visit` on the value list of the project (`panel` false) or on the list of
/// every panel, in walk order, making the panels' lists on the way.
template <class Visit> void forEachValueList(KRC_KrolleProject const& view, bool panel, Visit visit)
{
    if (!panel) {
        if (KRC_InfoFieldList* list = view.infoFieldList())
            visit(*list);
        return;
    }
    for (Krolle::Panel_t const& each : Krolle::range(view.beginPanel(), view.endPanel())) {
        if (KRC_InfoFieldList* list = each.infoFieldList())
            visit(*list);
    }
}

/// Stands in for a missing record, so that a view without a project iterates nothing.
template <class List> List& orEmpty(List* list)
{
    static List empty;
    return list ? *list : empty;
}

QString const kUntitled = QStringLiteral("Untitled");
QString const kSketch = QStringLiteral("Sketch");

} // namespace

KRC_ProjectInfoFieldDescList* KRC_KrolleProject::infoFieldDescList() const
{
    return projectRecord<KRC_ProjectInfoFieldDescList>(project());
}

KRC_PanelInfoFieldDescList* KRC_KrolleProject::panelInfoFieldDescList() const
{
    return projectRecord<KRC_PanelInfoFieldDescList>(project());
}

KRC_ExtraInfoFieldDescList* KRC_KrolleProject::panelExtraInfoFieldDescList() const
{
    return projectRecord<KRC_ExtraInfoFieldDescList>(project());
}

KRC_InfoFieldList* KRC_KrolleProject::infoFieldList() const
{
    return projectRecord<KRC_InfoFieldList>(project());
}

KRC_HiddenInfoFieldList* KRC_KrolleProject::getHiddenInfofields() const
{
    return projectRecord<KRC_HiddenInfoFieldList>(project());
}

KRC_InfoFieldDescList_t::iterator KRC_KrolleProject::beginProjectInfoFieldDesc()
{
    return orEmpty<KRC_InfoFieldDescList_t>(infoFieldDescList()).begin();
}

KRC_InfoFieldDescList_t::iterator KRC_KrolleProject::endProjectInfoFieldDesc()
{
    return orEmpty<KRC_InfoFieldDescList_t>(infoFieldDescList()).end();
}

KRC_InfoFieldDescList_t::iterator KRC_KrolleProject::beginPanelInfoFieldDesc()
{
    return orEmpty<KRC_InfoFieldDescList_t>(panelInfoFieldDescList()).begin();
}

KRC_InfoFieldDescList_t::iterator KRC_KrolleProject::endPanelInfoFieldDesc()
{
    return orEmpty<KRC_InfoFieldDescList_t>(panelInfoFieldDescList()).end();
}

KRC_ExtraInfoFieldDescList_t::iterator KRC_KrolleProject::beginPanelExtraInfoFields()
{
    return orEmpty<KRC_ExtraInfoFieldDescList_t>(panelExtraInfoFieldDescList()).begin();
}

KRC_ExtraInfoFieldDescList_t::iterator KRC_KrolleProject::endPanelExtraInfoFields()
{
    return orEmpty<KRC_ExtraInfoFieldDescList_t>(panelExtraInfoFieldDescList()).end();
}

KRC_InfoFieldDescList* KRC_KrolleProject::descListOf(bool panel) const
{
    if (panel)
        return panelInfoFieldDescList();
    return infoFieldDescList();
}

void KRC_KrolleProject::reportInfoFieldChange(PIO_Metadata* record, int code, bool report) const
{
    if (report && record)
        record->emitChanged(changeManager(), code);
}

int KRC_KrolleProject::insertInfoField(bool panel, InfoFieldType type, QString const& name, int id,
    InfoFieldSize size, KRC_InfoFieldList const& values, int beforeId, bool report)
{
    KRC_InfoFieldDescList* descs = descListOf(panel);
    if (!descs)
        return INT_MAX;
    if (id == INT_MAX)
        id = descs->getUniqId();
    KRC_InfoFieldDesc replaced;
    KRC_InfoFieldList replacedValues;
    removeInfoField(panel, id, replaced, replacedValues, false);

    descs->insert(descs->find(beforeId), KRC_InfoFieldDesc(type, id, name, size));
    reportInfoFieldChange(descs, kAdded, report);
    // The saved values go back owner by owner, each where it stood; a null one stands
    // for an owner that had no value, which therefore gets none.
    auto saved = values.begin();
    forEachValueList(*this, panel, [&](KRC_InfoFieldList& list) {
        if (saved == values.end())
            list.insertInfoField(type, id, beforeId);
        else if (UT_SharedPtr<KRC_InfoField> const field = *saved++)
            list.insertInfoField(field, field->nextId());
        reportInfoFieldChange(&list, kAdded, report);
    });
    return id;
}

int KRC_KrolleProject::insertInfoField(
    bool panel, InfoFieldType type, QString const& name, int id, InfoFieldSize size, int beforeId, bool report)
{
    return insertInfoField(panel, type, name, id, size, KRC_InfoFieldList(), beforeId, report);
}

int KRC_KrolleProject::insertInfoField(
    bool panel, InfoFieldType type, QString const& name, int id, int beforeId, bool report)
{
    return insertInfoField(panel, type, name, id, KRC_InfoFieldDesc::kDefault, beforeId, report);
}

int KRC_KrolleProject::insertInfoField(
    bool panel, KRC_InfoFieldDesc const& desc, KRC_InfoFieldList const& values, int beforeId, bool report)
{
    return insertInfoField(panel, desc.type(), desc.name(), desc.id(), desc.size(), values, beforeId, report);
}

int KRC_KrolleProject::insertInfoField(bool panel, KRC_InfoFieldDesc const& desc, int beforeId, bool report)
{
    return insertInfoField(panel, desc, KRC_InfoFieldList(), beforeId, report);
}

int KRC_KrolleProject::insertPitchModeInfoField(int id, int beforeId, bool report)
{
    return insertInfoField(true, KRC_InfoFieldDesc::kText | KRC_InfoFieldDesc::kComment,
        KRC_InfoFieldDesc::commentsField, id, beforeId, report);
}

int KRC_KrolleProject::getPitchModeField() const
{
    int named = INT_MAX;
    for (KRC_InfoFieldDesc const& desc : orEmpty<KRC_InfoFieldDescList_t>(panelInfoFieldDescList())) {
        if (desc.isComment())
            return desc.id();
        if (named == INT_MAX && desc.name() == KRC_InfoFieldDesc::commentsField)
            named = desc.id();
    }
    return named;
}

int KRC_KrolleProject::removeInfoField(
    bool panel, int id, KRC_InfoFieldDesc& desc, KRC_InfoFieldList& values, bool report)
{
    KRC_InfoFieldDescList* descs = descListOf(panel);
    const auto found = descs ? descs->find(id) : KRC_InfoFieldDescList::iterator();
    if (!descs || found == descs->end())
        return id;
    const int next = std::next(found) == descs->end() ? INT_MAX : std::next(found)->id();
    const int removed = found->id();
    desc.setType(found->type());
    desc.setId(removed);
    desc.setName(found->name());
    desc.setSize(found->size());
    descs->erase(found);
    reportInfoFieldChange(descs, kRemoved, report);
    forEachValueList(*this, panel, [&](KRC_InfoFieldList& list) {
        values.push_back(list.removeInfoField(removed));
        reportInfoFieldChange(&list, kRemoved, report);
    });
    return next;
}

bool KRC_KrolleProject::removeInfoField(bool panel, std::set<int> const& ids)
{
    KRC_InfoFieldDescList* descs = descListOf(panel);
    if (ids.empty() || !descs)
        return true;
    descs->remove(ids);
    reportInfoFieldChange(descs, kRemoved, true);
    forEachValueList(*this, panel, [&](KRC_InfoFieldList& list) {
        list.remove(ids);
        reportInfoFieldChange(&list, kRemoved, true);
    });
    return true;
}

int KRC_KrolleProject::moveInfoField(bool panel, int id, int beforeId, bool report)
{
    KRC_InfoFieldDescList* descs = descListOf(panel);
    if (!descs)
        return INT_MAX;
    const int back = descs->move(id, beforeId);
    reportInfoFieldChange(descs, kMoved, report);
    forEachValueList(*this, panel, [&](KRC_InfoFieldList& list) {
        list.moveInfoField(id, beforeId);
        reportInfoFieldChange(&list, kMoved, report);
    });
    return back;
}

bool KRC_KrolleProject::remapInfoField(bool panel, std::map<int, int> const& ids)
{
    KRC_InfoFieldDescList* descs = descListOf(panel);
    if (ids.empty() || !descs)
        return true;
    descs->remap(ids);
    reportInfoFieldChange(descs, kRemapped, true);
    forEachValueList(*this, panel, [&](KRC_InfoFieldList& list) {
        list.remap(ids);
        reportInfoFieldChange(&list, kRemapped, true);
    });
    return true;
}

int KRC_KrolleProject::renameInfoField(bool panel, int id, QString const& name, QString& oldName, bool report)
{
    KRC_InfoFieldDescList* descs = descListOf(panel);
    const auto found = descs ? descs->find(id) : KRC_InfoFieldDescList::iterator();
    if (!descs || found == descs->end())
        return INT_MAX;
    oldName = found->name();
    found->setName(name);
    reportInfoFieldChange(descs, kRenamed, report);
    return found->id();
}

int KRC_KrolleProject::renameInfoField(bool panel, int id, QString const& name, bool report)
{
    QString oldName;
    return renameInfoField(panel, id, name, oldName, report);
}

void KRC_KrolleProject::clearInfoFields(bool panel)
{
    if (KRC_InfoFieldDescList* descs = descListOf(panel)) {
        descs->clear();
        reportInfoFieldChange(descs, kRemoved, true);
    }
}

void KRC_KrolleProject::clearPanelExtraInfoFields()
{
    if (KRC_ExtraInfoFieldDescList* extras = panelExtraInfoFieldDescList()) {
        extras->clear();
        reportInfoFieldChange(extras, kRemoved, true);
    }
}

void KRC_KrolleProject::insertExtraInfoField(KRC_ExtraInfoFieldDesc const& desc)
{
    if (KRC_ExtraInfoFieldDescList* extras = panelExtraInfoFieldDescList())
        extras->push_back(desc);
}

void KRC_KrolleProject::insertExtraInfoField(InfoFieldType type, QString const& name, int position)
{
    insertExtraInfoField(KRC_ExtraInfoFieldDesc(type, name, position));
}

int KRC_KrolleProject::getFieldByName(bool panel, QString const& name, KRC_InfoFieldList const* local) const
{
    if (KRC_InfoFieldDescList const* descs = descListOf(panel)) {
        const auto found = descs->find(name);
        if (found != descs->end())
            return found->id();
    }
    if (local) {
        for (UT_SharedPtr<KRC_InfoField> const& field : *local) {
            if (field && field->name() == name)
                return field->id();
        }
    }
    return INT_MAX;
}

KRC_InfoFieldDesc* KRC_KrolleProject::getInfoFieldDesc(bool panel, int id, KRC_InfoFieldList const* local) const
{
    if (KRC_InfoFieldDescList* descs = descListOf(panel)) {
        const auto found = descs->find(id);
        if (found != descs->end())
            return &*found;
    }
    const UT_SharedPtr<KRC_InfoField> field = id < 0 && local ? local->getInfoField(id) : nullptr;
    if (!field)
        return nullptr;
    // One answer at a time for local values, which have no definition to point into.
    static KRC_InfoFieldDesc localDesc;
    localDesc = KRC_InfoFieldDesc(field->type(), field->id(), field->name(), field->size());
    return &localDesc;
}

void KRC_KrolleProject::getInfoFieldIds(bool panel, std::set<int>& ids) const
{
    if (KRC_InfoFieldDescList const* descs = descListOf(panel))
        descs->getIds(ids);
}

QString KRC_KrolleProject::getUniqInfoFieldName(
    QString const& base, bool panel, KRC_InfoFieldList const* local) const
{
    std::set<QString> taken;
    if (KRC_InfoFieldDescList const* descs = descListOf(panel)) {
        for (KRC_InfoFieldDesc const& desc : *descs)
            taken.insert(desc.name());
    }
    if (local) {
        for (UT_SharedPtr<KRC_InfoField> const& field : *local) {
            if (field)
                taken.insert(field->name());
        }
    }
    QString name = base;
    for (int suffix = 2; taken.count(name); ++suffix)
        name = QStringLiteral("%1 %2").arg(base).arg(suffix);
    return name;
}

QString KRC_KrolleProject::getUniqInfoFieldName(InfoFieldType type, bool panel, KRC_InfoFieldList const* local) const
{
    return getUniqInfoFieldName(type == KRC_InfoFieldDesc::kImage ? kSketch : kUntitled, panel, local);
}

void KRC_KrolleProject::setInfoFieldVisible(QString const& name, bool visible)
{
    KRC_HiddenInfoFieldList* hidden = getHiddenInfofields();
    if (!hidden || isInfoFieldVisible(name) == visible)
        return;
    if (visible)
        hidden->erase(name);
    else
        hidden->insert(name);
    reportInfoFieldChange(hidden, visible ? kAdded : kRemoved, true);
}

bool KRC_KrolleProject::isInfoFieldVisible(QString const& name) const
{
    KRC_HiddenInfoFieldList const* hidden = getHiddenInfofields();
    return !hidden || hidden->count(name) == 0;
}

void KRC_KrolleProject::setHiddenInfoFields(std::set<QString> const& names)
{
    KRC_HiddenInfoFieldList* hidden = getHiddenInfofields();
    if (!hidden || static_cast<std::set<QString> const&>(*hidden) == names)
        return;
    static_cast<std::set<QString>&>(*hidden) = names;
    reportInfoFieldChange(hidden, kAdded, true);
    reportInfoFieldChange(hidden, kRemoved, true);
}

std::list<KRC_InfoFieldDesc*> KRC_KrolleProject::visiblePanelInfoFieldDescList() const
{
    std::list<KRC_InfoFieldDesc*> visible;
    for (KRC_InfoFieldDesc& desc : orEmpty<KRC_InfoFieldDescList_t>(panelInfoFieldDescList())) {
        if (isInfoFieldVisible(desc.name()))
            visible.push_back(&desc);
    }
    return visible;
}

std::list<KRC_ExtraInfoFieldDesc*> KRC_KrolleProject::visibleExtraPanelInfoFieldDescList() const
{
    std::list<KRC_ExtraInfoFieldDesc*> visible;
    for (KRC_ExtraInfoFieldDesc& extra : orEmpty<KRC_ExtraInfoFieldDescList_t>(panelExtraInfoFieldDescList())) {
        if (isInfoFieldVisible(extra.name()))
            visible.push_back(&extra);
    }
    return visible;
}

quint64 KRC_KrolleProject::getNumPanelInfoFields() const
{
    return orEmpty<KRC_InfoFieldDescList_t>(panelInfoFieldDescList()).size();
}

quint64 KRC_KrolleProject::getNumProjectPanelInfoFields() const
{
    return orEmpty<KRC_InfoFieldDescList_t>(infoFieldDescList()).size();
}
