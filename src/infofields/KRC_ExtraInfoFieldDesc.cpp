#include "infofields/KRC_ExtraInfoFieldDesc.h"

KRC_ExtraInfoFieldDesc::KRC_ExtraInfoFieldDesc(KRC_InfoFieldDesc::Type type, QString const& name, int position)
    : m_type(type)
    , m_name(name)
    , m_position(position)
{
}
