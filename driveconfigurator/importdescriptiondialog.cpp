#include "importdescriptiondialog.h"

#include "driveproject.h"

#include "filedialog.h"
#include "messagebox.h"

#include <camdesigner/camdescription.h>

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QJsonArray>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int TableRole = Qt::UserRole;
}

ImportDescriptionDialog::ImportDescriptionDialog(const QVector<QJsonObject> &descriptions, const QString &projectName,
                                                 int excludedTable, QWidget *parent)
    : QDialog(parent)
    , m_sourceLabel(new QLabel(this))
    , m_list(new QListWidget(this))
    , m_otherProjectButton(new QPushButton(tr("&Anderes Projekt…"), this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Kurvendefinitionsdaten aus Projekt importieren"));
    m_list->setObjectName(QStringLiteral("descriptionList"));
    m_otherProjectButton->setObjectName(QStringLiteral("otherProjectButton"));
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("&Laden"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Abbrechen"));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_sourceLabel);
    layout->addWidget(m_list, 1);
    auto *row = new QHBoxLayout;
    row->addWidget(m_otherProjectButton);
    row->addStretch();
    row->addWidget(m_buttons);
    layout->addLayout(row);
    resize(460, 320);

    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::currentRowChanged, this, &ImportDescriptionDialog::updateButtons);
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this] {
        if (!selectedDescription().isEmpty())
            accept();
    });
    connect(m_otherProjectButton, &QPushButton::clicked, this, &ImportDescriptionDialog::chooseOtherProject);
    showProject(descriptions, projectName, excludedTable);
}

void ImportDescriptionDialog::showProject(const QVector<QJsonObject> &descriptions, const QString &projectName,
                                          int excludedTable)
{
    m_descriptions = descriptions;
    m_projectName = projectName;
    m_sourceLabel->setText(tr("Kurvendefinitionsdaten im Projekt „%1“:").arg(projectName));
    m_list->clear();
    for (int table = 0; table < descriptions.size(); ++table) {
        const QJsonObject &description = descriptions.at(table);
        const int points = description.value(QStringLiteral("MotionPoints")).toArray().size();
        if (table == excludedTable || points == 0)
            continue;
        // The law by the name the editor shows for it.
        const QString law = CamDescription::motionLawDisplayName(
            description.value(QStringLiteral("MotionLaw")).toString(QStringLiteral("Vdi2142")));
        const QString text = description.value(QStringLiteral("Cyclic")).toBool()
            ? tr("Kurvenscheibe %1: %2 Bewegungspunkte, %3, zyklisch").arg(table).arg(points).arg(law)
            : tr("Kurvenscheibe %1: %2 Bewegungspunkte, %3").arg(table).arg(points).arg(law);
        auto *item = new QListWidgetItem(text, m_list);
        item->setData(TableRole, table);
    }
    if (m_list->count() == 0) {
        auto *item = new QListWidgetItem(tr("Keine Kurvendefinitionsdaten vorhanden."), m_list);
        item->setFlags(Qt::NoItemFlags);
        item->setData(TableRole, -1);
    } else {
        m_list->setCurrentRow(0);
    }
    updateButtons();
}

void ImportDescriptionDialog::chooseOtherProject()
{
    const QString path = FileDialog::getOpenFileName(this, tr("Antriebsprojekt wählen"), QString(),
                                                     tr("Antriebsprojekte (*.mxdrive);;Alle Dateien (*)"));
    if (path.isEmpty())
        return;
    QVector<QJsonObject> descriptions;
    QString errorString;
    if (!DriveProject::readDescriptions(path, &descriptions, &errorString)) {
        MessageBox::warning(this, tr("Projekt kann nicht gelesen werden"), errorString);
        return;
    }
    // Another drive: every table of it may be taken, the asking one too.
    showProject(descriptions, QFileInfo(path).fileName(), -1);
}

void ImportDescriptionDialog::updateButtons()
{
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!selectedDescription().isEmpty());
}

QJsonObject ImportDescriptionDialog::selectedDescription() const
{
    const QListWidgetItem *item = m_list->currentItem();
    const int table = item ? item->data(TableRole).toInt() : -1;
    return table >= 0 ? m_descriptions.value(table) : QJsonObject();
}

QString ImportDescriptionDialog::selectedName() const
{
    const QListWidgetItem *item = m_list->currentItem();
    if (!item)
        return QString();
    return tr("Kurvenscheibe %1 aus %2").arg(item->data(TableRole).toInt()).arg(m_projectName);
}
