// A frame at which the engine evaluates something (a camera, an attribute).
#pragma once

#include <QtGlobal>

/// A frame value together with how it was converted from the caller's frame.
///
/// `eExact` (1) keeps the value as given; `eFloor` (0) takes the whole frame that
/// the value lies in; `eRound` (2) takes the nearest whole frame. `frameInt()` is the
/// whole frame that `frame()` lies in, never below 0. Plain value type.
class MO_FrameKey
{
public:
    enum ConversionType
    {
        eFloor = 0,
        eExact = 1,
        eRound = 2
    };

    MO_FrameKey(double const& frame, ConversionType conversion);
    /// The same with the conversion as its number; an unknown number means eExact.
    MO_FrameKey(double const& frame, int conversion);

    double frame() const { return m_frame; }
    quint32 frameInt() const;
    ConversionType conversion() const { return m_conversion; }

private:
    double m_frame;
    ConversionType m_conversion;
};
