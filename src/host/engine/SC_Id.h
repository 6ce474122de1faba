// Identity of scenes, shots, panels and transitions in the scene engine.
#pragma once

#include "host/base/UT_Id.h"

/// 64-bit identity of an engine object (a scene, and so a shot or a panel, or a
/// transition), compared and ordered by value. The default value 0 is "no id": the
/// engine never hands it out. Ids are unique in a project and never reused while the
/// project lives, so they stay true across edits of the blocks around them.
/// Plain value type.
class SC_Id : public UT_Id
{
public:
    constexpr SC_Id() = default;
    constexpr explicit SC_Id(quint64 value)
        : UT_Id(value)
    {
    }
    constexpr SC_Id(UT_Id const& id)
        : UT_Id(id)
    {
    }
};

namespace std {
template <> struct hash<SC_Id>
{
    size_t operator()(SC_Id const& id) const { return hash<quint64>()(id.value()); }
};
} // namespace std
