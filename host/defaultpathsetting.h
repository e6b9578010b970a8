#pragma once

#include <QString>

namespace VxUtilities {

// The directory last used for a kind of file (a key such as "CamDesigner"),
// kept in the application's settings so that file dialogs start there.
class DefaultPathSetting
{
public:
    explicit DefaultPathSetting(const QString &kind);

    // The stored directory, or the user's home directory when none is stored
    // or the stored one no longer exists.
    QString path() const;
    // Stores the directory of a file path (or the directory itself).
    void setPath(const QString &path);

private:
    QString m_key;
};

} // namespace VxUtilities
