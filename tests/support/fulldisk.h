#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <cerrno>
#include <cstring>

// A real full disk: a tmpfs of 64 KiB mounted over a temporary folder. Files
// put there first stay whole; fill() then takes what is left, so that any
// further write meets "No space left on device". Mounting needs root; where
// it is refused, isMounted() is false and the test skips.
class FullDisk
{
public:
    FullDisk()
    {
        m_mounted = m_folder.isValid()
            && QProcess::execute(QStringLiteral("mount"), { QStringLiteral("-t"), QStringLiteral("tmpfs"),
                                                            QStringLiteral("-o"), QStringLiteral("size=64k"),
                                                            QStringLiteral("tmpfs"), m_folder.path() }) == 0;
    }
    ~FullDisk()
    {
        if (m_mounted)
            QProcess::execute(QStringLiteral("umount"), { m_folder.path() });
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

    bool isMounted() const { return m_mounted; }
    QString filePath(const QString &name) const { return m_folder.filePath(name); }

    // Fills the disk up; true when a write was refused for want of space.
    bool fill() const
    {
        QFile filler(filePath(QStringLiteral(".filler")));
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return false;
        const QByteArray block(512, 'x');
        while (filler.write(block) > 0) {
        }
        return filler.errorString() == noSpaceText();
    }
    // The files in the folder besides the filler: nothing may be left behind.
    QStringList files() const
    {
        QStringList names = QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
        names.removeAll(QStringLiteral(".filler"));
        return names;
    }

    // The system's text for a full disk, as a failed save must report it.
    static QString noSpaceText() { return QString::fromLocal8Bit(std::strerror(ENOSPC)); }

private:
    QTemporaryDir m_folder;
    bool m_mounted = false;
};
