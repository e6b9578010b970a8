#include "atomicfilewriter.h"

#include <QByteArray>
#include <QSaveFile>

namespace VxUtilities {

bool AtomicFileWriter::writeAll(QIODevice &device, const QByteArray &bytes)
{
    // A device may take fewer bytes than offered; what is left is written
    // again until it is all out or the device takes nothing more.
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 taken = device.write(bytes.constData() + written, bytes.size() - written);
        if (taken <= 0)
            return false;
        written += taken;
    }
    return true;
}

bool AtomicFileWriter::write(const QString &path, const QByteArray &bytes, QString *errorString)
{
    QSaveFile file(path);
    // Unbuffered, so that a full disk shows at the write that meets it: a
    // buffered write fails only when commit() flushes, and QSaveFile then
    // reports the failure without the system's reason. A file not committed
    // is removed with the QSaveFile; the target is not touched.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeAll(file, bytes) && file.commit())
        return true;
    if (errorString)
        *errorString = file.errorString();
    return false;
}

} // namespace VxUtilities
