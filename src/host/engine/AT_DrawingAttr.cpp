#include "host/engine/AT_DrawingAttr.h"

#include "host/engine/TUElementTimedValue.h"

AT_DrawingAttr::AT_DrawingAttr(TUElementTimedValue* column)
    : m_column(column)
{
}

AT_DrawingAttr::~AT_DrawingAttr() = default;

int AT_DrawingAttr::getElementId() const
{
    return m_column ? m_column->elementId() : -1;
}

CA_CelKey AT_DrawingAttr::key(double frame) const
{
    return m_column ? m_column->keyAt(frame) : CA_CelKey();
}

TUElementTimedValue* AT_DrawingAttr::timedValue() const
{
    return m_column.get();
}

AT_DoubleAttr::AT_DoubleAttr(double value)
    : m_value(value)
{
}
