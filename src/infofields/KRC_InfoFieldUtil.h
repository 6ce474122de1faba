// Helpers over info field values and their definitions.
#pragma once

class KRC_InfoFieldDescList;
class KRC_InfoFieldList;

namespace KRC_InfoFieldUtil {

/// Puts the values of `list` in the order of `descs`: for each definition the first
/// value with its id, then what remains in its own order (local values and globals
/// without a definition go to the end).
void order_infofield_based_on_desc(KRC_InfoFieldDescList const& descs, KRC_InfoFieldList& list);

} // namespace KRC_InfoFieldUtil
