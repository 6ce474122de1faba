#include "support/InfoFieldInvariants.h"

#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"
#include "project/KRC_KrolleProject.h"

namespace {

/// The ids of the global values of `list` that `descs` defines, in list order.
std::vector<int> definedGlobals(KRC_InfoFieldDescList const& descs, KRC_InfoFieldList const& list)
{
    std::vector<int> ids;
    for (UT_SharedPtr<KRC_InfoField> const& field : list) {
        if (field && field->isGlobal() && descs.contain(field->id()))
            ids.push_back(field->id());
    }
    return ids;
}

/// Where `list`'s defined globals break the definitions' order, or an empty text.
QString orderFault(KRC_InfoFieldDescList const& descs, KRC_InfoFieldList const& list)
{
    const std::vector<int> ids = definedGlobals(descs, list);
    auto desc = descs.begin();
    for (int id : ids) {
        while (desc != descs.end() && desc->id() != id)
            ++desc;
        if (desc == descs.end())
            return QStringLiteral("value %1 out of the definitions' order or repeated").arg(id);
        ++desc;
    }
    return QString();
}

std::vector<std::pair<int, QString>> localsOf(KRC_InfoFieldList const& list)
{
    std::vector<std::pair<int, QString>> locals;
    for (UT_SharedPtr<KRC_InfoField> const& field : list) {
        if (field && field->isLocal())
            locals.emplace_back(field->id(), field->name());
    }
    return locals;
}

} // namespace

::testing::AssertionResult infoFieldsFollowDefinitions(KRC_KrolleProject& view, LocalInfoFields const* locals)
{
    QString fault = orderFault(*view.infoFieldDescList(), *view.infoFieldList());
    if (!fault.isEmpty())
        return ::testing::AssertionFailure() << "project: " << fault.toStdString();
    size_t index = 0;
    for (Krolle::Panel_t const& panel : Krolle::range(view.beginPanel(), view.endPanel())) {
        KRC_InfoFieldList const& list = *panel.infoFieldList();
        fault = orderFault(*view.panelInfoFieldDescList(), list);
        if (fault.isEmpty() && locals && (index >= locals->size() || (*locals)[index] != localsOf(list)))
            fault = QStringLiteral("local values moved or changed");
        if (!fault.isEmpty())
            return ::testing::AssertionFailure() << "panel " << index << ": " << fault.toStdString();
        ++index;
    }
    return ::testing::AssertionSuccess();
}

LocalInfoFields localInfoFieldsOf(KRC_KrolleProject& view)
{
    LocalInfoFields locals;
    for (Krolle::Panel_t const& panel : Krolle::range(view.beginPanel(), view.endPanel()))
        locals.push_back(localsOf(*panel.infoFieldList()));
    return locals;
}
