#include "infofields/KRC_InfoFieldUtil.h"

#include "infofields/KRC_InfoFieldDescList.h"
#include "infofields/KRC_InfoFieldList.h"

namespace KRC_InfoFieldUtil {

void order_infofield_based_on_desc(KRC_InfoFieldDescList const& descs, KRC_InfoFieldList& list)
{
    KRC_InfoFieldList_t ordered;
    for (KRC_InfoFieldDesc const& desc : descs) {
        const auto value = list.find(desc.id());
        if (value != list.end())
            ordered.splice(ordered.end(), list, value);
    }
    ordered.splice(ordered.end(), list);
    static_cast<KRC_InfoFieldList_t&>(list).swap(ordered);
}

} // namespace KRC_InfoFieldUtil
