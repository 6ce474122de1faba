#include "infofields/KRC_InfoField.h"

KRC_InfoField::KRC_InfoField(Type type, Size size, int id, QString const& name)
    : KRC_InfoFieldDesc(type, id, name, size)
{
}

KRC_InfoField::KRC_InfoField(KRC_InfoField const& other)
    : UT_ShareBase(other)
    , KRC_InfoFieldDesc(other)
    , m_dragName(other.m_dragName)
{
}

KRC_InfoField::~KRC_InfoField() = default;
