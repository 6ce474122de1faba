#include "infofields/KRC_InfoFieldDesc.h"

QString const KRC_InfoFieldDesc::commentsField = QStringLiteral("Comments");

KRC_InfoFieldDesc::KRC_InfoFieldDesc(Type type, int id, QString const& name, Size size)
    : m_type(type)
    , m_id(id)
    , m_name(name)
    , m_size(size)
{
}

KRC_InfoFieldDesc::~KRC_InfoFieldDesc() = default;
