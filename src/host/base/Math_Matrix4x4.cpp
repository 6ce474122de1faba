#include "host/base/Math_Matrix4x4.h"

#include <algorithm>
#include <ostream>

namespace Math {

double const Matrix4x4::_identityPattern[16] = {
    1.0, 0.0, 0.0, 0.0, //
    0.0, 1.0, 0.0, 0.0, //
    0.0, 0.0, 1.0, 0.0, //
    0.0, 0.0, 0.0, 1.0, //
};

Matrix4x4::Matrix4x4()
    : m_identity(true)
{
    std::copy(std::begin(_identityPattern), std::end(_identityPattern), m_values);
}

Matrix4x4::Matrix4x4(double const (&rowMajor)[16])
    : m_identity(std::equal(std::begin(rowMajor), std::end(rowMajor), std::begin(_identityPattern)))
{
    std::copy(std::begin(rowMajor), std::end(rowMajor), m_values);
}

Matrix4x4& Matrix4x4::operator=(Matrix4x4 const& other)
{
    std::copy(std::begin(other.m_values), std::end(other.m_values), m_values);
    m_identity = other.m_identity;
    return *this;
}

Matrix4x4 Matrix4x4::operator*(Matrix4x4 const& other) const
{
    if (m_identity)
        return other;
    if (other.m_identity)
        return *this;
    Matrix4x4 result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += at(row, k) * other.at(k, column);
            result.m_values[row * 4 + column] = sum;
        }
    }
    result.m_identity = false;
    return result;
}

Matrix4x4& Matrix4x4::operator*=(Matrix4x4 const& other)
{
    return *this = *this * other;
}

Matrix4x4& Matrix4x4::translate(double x, double y, double z)
{
    // M * T only changes the last column: column 3 += x * col0 + y * col1 + z * col2.
    for (int row = 0; row < 4; ++row)
        m_values[row * 4 + 3] += x * at(row, 0) + y * at(row, 1) + z * at(row, 2);
    if (x != 0.0 || y != 0.0 || z != 0.0)
        m_identity = false;
    return *this;
}

void Matrix4x4::set(int row, int column, double value)
{
    m_values[row * 4 + column] = value;
    m_identity = std::equal(std::begin(m_values), std::end(m_values), std::begin(_identityPattern));
}

bool Matrix4x4::operator==(Matrix4x4 const& other) const
{
    return std::equal(std::begin(m_values), std::end(m_values), std::begin(other.m_values));
}

std::ostream& operator<<(std::ostream& stream, Matrix4x4 const& matrix)
{
    stream << '[';
    for (int row = 0; row < 4; ++row) {
        stream << (row ? "; " : "");
        for (int column = 0; column < 4; ++column)
            stream << (column ? " " : "") << matrix.at(row, column);
    }
    return stream << ']';
}

} // namespace Math
