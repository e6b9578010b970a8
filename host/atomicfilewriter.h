#pragma once

#include <QString>

class QByteArray;
class QIODevice;

namespace VxUtilities {

// Replaces a file as a whole or not at all. Every file the suite and its
// plug-ins save goes through here: the bytes go to a temporary file beside
// the target, each write is checked for its byte count, and only a complete
// and synced file takes the target's place. A full disk, a missing directory
// or a refused rename leave the old file byte for byte as it was.
class AtomicFileWriter
{
public:
    // False with the system's error text (for example "No space left on
    // device") when the file could not be replaced.
    static bool write(const QString &path, const QByteArray &bytes, QString *errorString);

    // Writes all bytes into an open device, one checked write after the
    // other; false as soon as the device takes nothing or fails.
    static bool writeAll(QIODevice &device, const QByteArray &bytes);
};

} // namespace VxUtilities
