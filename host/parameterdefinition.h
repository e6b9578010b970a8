#pragma once

#include <QFlags>
#include <QHashFunctions>
#include <QMetaType>
#include <QString>

namespace MxParameterDefinition {

// Where a parameter lives: 0 is the drive-wide space, axis a lives in a + 1.
using eLivingSpace = int;
constexpr eLivingSpace DriveLivingSpace = 0;

// The name of a parameter: a group letter followed by a number ("G283").
class ParameterCoordinate
{
public:
    ParameterCoordinate() = default;
    // An unparsable text gives an invalid (empty) coordinate.
    explicit ParameterCoordinate(const QString &text);

    bool isValid() const { return m_group != QChar(); }
    QChar group() const { return m_group; }
    int number() const { return m_number; }
    QString toText() const;
    // A number unique over all groups, so that two coordinates with equal
    // numbers are the same parameter.
    int toNumber() const;

    bool operator==(const ParameterCoordinate &other) const
    {
        return m_group == other.m_group && m_number == other.m_number;
    }
    bool operator!=(const ParameterCoordinate &other) const { return !(*this == other); }

private:
    QChar m_group;
    int m_number = 0;
};

inline uint qHash(const ParameterCoordinate &coordinate, uint seed = 0)
{
    return ::qHash(coordinate.toNumber(), seed);
}

// A parameter of one axis (axis -1 is the drive itself).
class ParameterAddress
{
public:
    enum TextFlag { NoFlags = 0x0, WithAxis = 0x1 };
    Q_DECLARE_FLAGS(TextFlags, TextFlag)

    ParameterAddress() = default;
    ParameterAddress(int axis, const ParameterCoordinate &coordinate)
        : m_axis(axis)
        , m_coordinate(coordinate)
    {
    }

    int axis() const { return m_axis; }
    ParameterCoordinate coordinate() const { return m_coordinate; }
    // "G283", or with WithAxis "A0:G283" (the drive itself is "A-:G283").
    QString toText(TextFlags flags = NoFlags) const;

    bool operator==(const ParameterAddress &other) const
    {
        return m_axis == other.m_axis && m_coordinate == other.m_coordinate;
    }

private:
    int m_axis = -1;
    ParameterCoordinate m_coordinate;
};

} // namespace MxParameterDefinition

Q_DECLARE_OPERATORS_FOR_FLAGS(MxParameterDefinition::ParameterAddress::TextFlags)
Q_DECLARE_METATYPE(MxParameterDefinition::ParameterCoordinate)
Q_DECLARE_METATYPE(MxParameterDefinition::ParameterAddress)
