// 64-bit identity of the stand-in base library.
#pragma once

#include <QHash>
#include <QString>
#include <QtGlobal>

#include <functional>
#include <iosfwd>

class QDebug;

/// A 64-bit identity, compared and ordered by value. The default-constructed id has
/// the value 0, which no object is ever given: it is the "no id" of every caller.
/// A plain value type; safe to copy across threads.
class UT_Id
{
public:
    constexpr UT_Id() = default;
    constexpr explicit UT_Id(quint64 value)
        : m_value(value)
    {
    }

    constexpr quint64 value() const { return m_value; }
    /// True for the default value 0.
    constexpr bool isNull() const { return m_value == 0; }
    /// Hexadecimal form, "0x" followed by 16 digits.
    QString toString() const;

private:
    quint64 m_value = 0;
};

constexpr bool operator==(UT_Id const& a, UT_Id const& b)
{
    return a.value() == b.value();
}
constexpr bool operator!=(UT_Id const& a, UT_Id const& b)
{
    return a.value() != b.value();
}
constexpr bool operator<(UT_Id const& a, UT_Id const& b)
{
    return a.value() < b.value();
}
constexpr bool operator>(UT_Id const& a, UT_Id const& b)
{
    return b < a;
}
constexpr bool operator<=(UT_Id const& a, UT_Id const& b)
{
    return !(b < a);
}
constexpr bool operator>=(UT_Id const& a, UT_Id const& b)
{
    return !(a < b);
}

inline uint qHash(UT_Id const& id, uint seed = 0)
{
    return ::qHash(id.value(), seed);
}

QDebug operator<<(QDebug debug, UT_Id const& id);
std::ostream& operator<<(std::ostream& stream, UT_Id const& id);

namespace std {
template <> struct hash<UT_Id>
{
    size_t operator()(UT_Id const& id) const { return hash<quint64>()(id.value()); }
};
} // namespace std
