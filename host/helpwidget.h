#pragma once

#include <QWidget>

class QTextBrowser;

namespace MxSystem {
class System;
}

namespace VxHelpSystem {

// Shows the help page of an id, as the suite's help system finds it.
class HelpWidget : public QWidget
{
    Q_OBJECT
public:
    explicit HelpWidget(QWidget *parent = nullptr);

    void initialize(MxSystem::System *system);
    bool isInitialized() const { return m_system != nullptr; }
    QString currentId() const { return m_currentId; }

public slots:
    void showHelpForId(const QString &id);

private:
    MxSystem::System *m_system = nullptr;
    QTextBrowser *m_browser;
    QString m_currentId;
};

} // namespace VxHelpSystem
