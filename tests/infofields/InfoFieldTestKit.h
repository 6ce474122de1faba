// Helpers of the info field tests: lists from ids, and ids from lists.
#pragma once

#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"

#include <vector>

namespace fieldtest {

using Ids = std::vector<int>;

/// Definitions with those ids, named "D<id>", text.
inline KRC_PanelInfoFieldDescList descsOf(Ids const& ids)
{
    KRC_PanelInfoFieldDescList descs;
    for (int id : ids)
        descs.add(KRC_InfoFieldDesc::kText, id, QStringLiteral("D%1").arg(id), KRC_InfoFieldDesc::kDefault);
    return descs;
}

/// Text values with those ids; local ones named "L<id>", each valued "v<id>".
inline KRC_InfoFieldList valuesOf(Ids const& ids)
{
    KRC_InfoFieldList list;
    for (int id : ids)
        list.insertInfoField(KRC_InfoFieldDesc::kText, QStringLiteral("L%1").arg(id), id,
            QStringLiteral("v%1").arg(id), INT_MAX);
    return list;
}

inline Ids idsOf(KRC_InfoFieldDescList const& descs)
{
    Ids ids;
    for (KRC_InfoFieldDesc const& desc : descs)
        ids.push_back(desc.id());
    return ids;
}

inline Ids idsOf(KRC_InfoFieldList const& list)
{
    Ids ids;
    for (UT_SharedPtr<KRC_InfoField> const& field : list)
        ids.push_back(field->id());
    return ids;
}

} // namespace fieldtest
