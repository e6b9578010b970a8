#pragma once

#include <QByteArray>

namespace VxByteArraySupport {

// Byte-array helpers of the host suite.
class ByteArraySupport
{
public:
    // takeCopy: true keeps a deep copy of the bytes, false only refers to them.
    ByteArraySupport(const QByteArray &data, bool takeCopy);

    // The standard CRC-32 (as zlib, PNG and Ethernet compute it).
    quint32 crc32() const;

private:
    QByteArray m_data;
};

} // namespace VxByteArraySupport
