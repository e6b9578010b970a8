#include "helpwidget.h"

#include "system.h"

#include <QDir>
#include <QFile>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace VxHelpSystem {

HelpWidget::HelpWidget(QWidget *parent)
    : QWidget(parent)
    , m_browser(new QTextBrowser(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser);
}

void HelpWidget::initialize(MxSystem::System *system)
{
    m_system = system;
}

void HelpWidget::showHelpForId(const QString &id)
{
    m_currentId = id;
    if (!m_system)
        return;
    const QString page = QDir(m_system->helpDirectory()).filePath(id + QStringLiteral(".html"));
    QFile file(page);
    // Help pages are UTF-8, whatever their head says.
    if (file.open(QIODevice::ReadOnly))
        m_browser->setHtml(QString::fromUtf8(file.readAll()));
    else
        m_browser->setPlainText(tr("Keine Hilfe zu %1 vorhanden.").arg(id));
}

} // namespace VxHelpSystem
