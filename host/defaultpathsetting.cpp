#include "defaultpathsetting.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace VxUtilities {

DefaultPathSetting::DefaultPathSetting(const QString &kind)
    : m_key(QStringLiteral("DefaultPath/") + kind)
{
}

QString DefaultPathSetting::path() const
{
    const QString stored = QSettings().value(m_key).toString();
    if (!stored.isEmpty() && QFileInfo(stored).isDir())
        return stored;
    return QDir::homePath();
}

void DefaultPathSetting::setPath(const QString &path)
{
    const QFileInfo info(path);
    const QString directory = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    QSettings().setValue(m_key, directory);
}

} // namespace VxUtilities
