#include "host/engine/MO_FrameKey.h"

#include "host/engine/AT_FrameBlock.h"

#include <cmath>

MO_FrameKey::MO_FrameKey(double const& frame, ConversionType conversion)
    : m_conversion(conversion)
{
    switch (conversion) {
    case eFloor:
        m_frame = std::floor(frame);
        break;
    case eRound:
        m_frame = std::round(frame);
        break;
    case eExact:
    default:
        m_frame = frame;
        break;
    }
}

MO_FrameKey::MO_FrameKey(double const& frame, int conversion)
    : MO_FrameKey(frame, conversion == eFloor || conversion == eRound ? ConversionType(conversion) : eExact)
{
}

quint32 MO_FrameKey::frameInt() const
{
    return AT_Frame::wholeFrame(m_frame);
}
