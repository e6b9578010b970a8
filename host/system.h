#pragma once

#include <QObject>
#include <QString>

namespace MxSystem {

// The application's service object. Only the help system is reached through it.
class System : public QObject
{
    Q_OBJECT
public:
    static System *instance();

    // Base directory of the help pages.
    QString helpDirectory() const { return m_helpDirectory; }
    void setHelpDirectory(const QString &directory) { m_helpDirectory = directory; }

private:
    System() = default;
    QString m_helpDirectory;
};

} // namespace MxSystem
