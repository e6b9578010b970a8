#include "icofile.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageWriter>
#include <QtEndian>

namespace {

constexpr int headerSize = 6;
constexpr int entrySize = 16;
constexpr int entryDataSizeOffset = 8;
constexpr int entryDataOffsetOffset = 12;

QByteArray singleImageIco(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "ico");
    if (!writer.write(image))
        return {};
    return bytes;
}

} // namespace

QByteArray icoFile(const QVector<QImage> &images)
{
    QByteArray header(headerSize, '\0');
    qToLittleEndian<quint16>(1, header.data() + 2); // type 1: icon
    qToLittleEndian<quint16>(quint16(images.size()), header.data() + 4);

    QByteArray entries;
    QByteArray data;
    const int firstDataOffset = headerSize + entrySize * images.size();
    for (const QImage &image : images) {
        const QByteArray single = singleImageIco(image);
        if (single.size() < headerSize + entrySize)
            return {};
        QByteArray entry = single.mid(headerSize, entrySize);
        const quint32 size = qFromLittleEndian<quint32>(entry.constData() + entryDataSizeOffset);
        const quint32 offset = qFromLittleEndian<quint32>(entry.constData() + entryDataOffsetOffset);
        if (offset + size > quint32(single.size()))
            return {};
        qToLittleEndian<quint32>(quint32(firstDataOffset + data.size()), entry.data() + entryDataOffsetOffset);
        entries += entry;
        data += single.mid(int(offset), int(size));
    }
    return header + entries + data;
}
