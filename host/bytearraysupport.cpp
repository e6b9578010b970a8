#include "bytearraysupport.h"

#include <zlib.h>

namespace VxByteArraySupport {

ByteArraySupport::ByteArraySupport(const QByteArray &data, bool takeCopy)
    : m_data(takeCopy ? QByteArray(data.constData(), data.size()) : data)
{
}

quint32 ByteArraySupport::crc32() const
{
    uLong crc = ::crc32(0L, Z_NULL, 0);
    crc = ::crc32(crc, reinterpret_cast<const Bytef *>(m_data.constData()),
                  static_cast<uInt>(m_data.size()));
    return static_cast<quint32>(crc);
}

} // namespace VxByteArraySupport
