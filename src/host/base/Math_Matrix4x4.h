// 4x4 transformation matrix of the stand-in base library.
#pragma once

#include <iosfwd>

namespace Math {

/// A 4x4 matrix of doubles acting on column vectors: a point p maps to M * p, and
/// the translation stands in the last column, at (0,3), (1,3), (2,3).
///
/// A new matrix is the identity, copied from the table `_identityPattern`, and keeps a
/// flag that is true while it is the identity, so products with it cost nothing and
/// stay exact. `set` and `translate` keep the flag in step. Plain value type.
class Matrix4x4
{
public:
    Matrix4x4();
    /// From 16 values in row-major order.
    explicit Matrix4x4(double const (&rowMajor)[16]);
    Matrix4x4(Matrix4x4 const&) = default;
    Matrix4x4& operator=(Matrix4x4 const& other);

    /// Product with the object on the left: (*this * other) maps p to this(other(p)).
    Matrix4x4 operator*(Matrix4x4 const& other) const;
    Matrix4x4& operator*=(Matrix4x4 const& other);

    /// Applies a translation in the matrix's own frame, M = M * T(x, y, z), in place.
    Matrix4x4& translate(double x, double y, double z);

    double at(int row, int column) const { return m_values[row * 4 + column]; }
    void set(int row, int column, double value);
    /// The 16 values in row-major order.
    double const* data() const { return m_values; }

    /// True while the matrix is the identity.
    bool isIdentity() const { return m_identity; }

    /// Exact element-wise comparison.
    bool operator==(Matrix4x4 const& other) const;
    bool operator!=(Matrix4x4 const& other) const { return !(*this == other); }

private:
    static double const _identityPattern[16];

    double m_values[16];
    bool m_identity;
};

std::ostream& operator<<(std::ostream& stream, Matrix4x4 const& matrix);

} // namespace Math
