#include "host/base/UT_Id.h"

#include <QDebug>

#include <ostream>

QString UT_Id::toString() const
{
    return QStringLiteral("0x%1").arg(m_value, 16, 16, QLatin1Char('0'));
}

QDebug operator<<(QDebug debug, UT_Id const& id)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << "UT_Id(" << id.toString() << ')';
    return debug;
}

std::ostream& operator<<(std::ostream& stream, UT_Id const& id)
{
    return stream << id.toString().toStdString();
}
