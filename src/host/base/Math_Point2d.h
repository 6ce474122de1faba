// Plane point of the stand-in base library.
#pragma once

namespace Math {

/// A point of the plane, x and y as doubles, (0, 0) by default. Plain value type.
class Point2d
{
public:
    constexpr Point2d() = default;
    constexpr Point2d(double x, double y)
        : m_x(x)
        , m_y(y)
    {
    }

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    void setX(double x) { m_x = x; }
    void setY(double y) { m_y = y; }

    /// Exact comparison: points are stored values, not measurements.
    constexpr bool operator==(Point2d const& other) const { return m_x == other.m_x && m_y == other.m_y; }
    constexpr bool operator!=(Point2d const& other) const { return !(*this == other); }

private:
    double m_x = 0.0;
    double m_y = 0.0;
};

} // namespace Math
