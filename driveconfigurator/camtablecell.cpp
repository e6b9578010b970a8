#include "camtablecell.h"

#include "driveproject.h"

#include "parametercatalogue.h"
#include "simulateddrive.h"

#include <camdesigner/camdescription.h>
#include <camdesigner/camdesigner.h>

#include <QAbstractButton>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QString CountCoordinate = QStringLiteral("G68");
const QString CrcCoordinate = QStringLiteral("G293");
// A write changes thousands of elements one by one; the table is read again
// once the drive has been quiet for this long.
constexpr int QuietMilliseconds = 100;

} // namespace

CamTableCell::CamTableCell(DriveProject *project, int table, QWidget *parent)
    : QFrame(parent)
    , m_project(project)
    , m_table(table)
    , m_readTimer(new QTimer(this))
    , m_masterArray(MxSimulation::masterArrayCoordinate(table))
    , m_slaveArray(MxSimulation::slaveArrayCoordinate(table))
{
    setObjectName(QStringLiteral("camTable%1").arg(table));
    setFrameShape(QFrame::StyledPanel);

    m_description = CamDescription::createCamDescription(this, project->descriptionBytes(table));
    m_designer = CamDesigner::createCamDesigner(this, static_cast<unsigned short>(table));
    m_designer->initialize(project->drive(), DriveProject::LivingSpace, m_description);
    QWidget *button = CamDesigner::openCamDesignerButton(m_designer);
    m_button = qobject_cast<QAbstractButton *>(button);
    button->setObjectName(QStringLiteral("designerButton"));
    button->setMinimumHeight(120);

    connect(m_description, &CamDescription::changed, this,
            [this] { m_project->setDescription(m_table, m_description->toJson()); });
    connect(m_designer, &CamDesigner::showImportDescriptionDialogRequest, this,
            &CamTableCell::importDescriptionRequested);

    m_titleLabel = new QLabel(this);
    m_titleLabel->setObjectName(QStringLiteral("tableLabel"));
    QFont bold = m_titleLabel->font();
    bold.setBold(true);
    m_titleLabel->setFont(bold);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("countLabel"));
    m_stampLabel = new QLabel(this);
    m_stampLabel->setObjectName(QStringLiteral("stampLabel"));

    auto *facts = new QHBoxLayout;
    facts->addWidget(m_countLabel);
    facts->addStretch();
    facts->addWidget(m_stampLabel);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_titleLabel);
    layout->addWidget(button, 1);
    layout->addLayout(facts);

    m_readTimer->setSingleShot(true);
    m_readTimer->setInterval(QuietMilliseconds);
    connect(m_readTimer, &QTimer::timeout, this, &CamTableCell::readDrive);
    for (const QString &coordinate : { CountCoordinate, CrcCoordinate, m_masterArray, m_slaveArray }) {
        auto *information = project->drive()->definition(MxParameterDefinition::ParameterCoordinate(coordinate));
        if (information) {
            connect(information, &MxParameterInstance::ParameterInformation::valueChanged, m_readTimer,
                    qOverload<>(&QTimer::start));
        }
    }
    readDrive();
    updateTexts();
}

// The designer and its editor window go before the description they edit
// (children would go in the order of creation).
CamTableCell::~CamTableCell()
{
    delete m_designer;
}

QString CamTableCell::readNative(const QString &coordinate, int element) const
{
    return m_project->drive()->readValueNative(DriveProject::LivingSpace,
                                               MxParameterDefinition::ParameterCoordinate(coordinate), element);
}

quint32 CamTableCell::computedCrc() const
{
    return CamDesigner::storedTableCrc(m_project->drive(), DriveProject::LivingSpace,
                                       static_cast<unsigned short>(m_table));
}

quint32 CamTableCell::storedCrc() const
{
    return readNative(CrcCoordinate, m_table).toUInt(nullptr, 10);
}

void CamTableCell::readDrive()
{
    m_storedCount = m_project->drive()
                        ->readValue(DriveProject::LivingSpace, MxParameterDefinition::ParameterCoordinate(CountCoordinate),
                                    m_table)
                        .toInt();
    // Below two points the editor makes no comparison either.
    if (m_storedCount < 2)
        m_stamp = Stamp::None;
    else
        m_stamp = computedCrc() == storedCrc() ? Stamp::Editor : Stamp::Foreign;
    updateTexts();
}

QString CamTableCell::editorTitle() const
{
    return tr("Kurvenscheibe %1 – %2").arg(m_table).arg(m_project->displayName());
}

void CamTableCell::updateTexts()
{
    m_titleLabel->setText(tr("Kurvenscheibe %1").arg(m_table));
    m_countLabel->setText(tr("Stützstellen: %1").arg(m_storedCount));
    switch (m_stamp) {
    case Stamp::None:
        m_stampLabel->setText(tr("CRC: –"));
        m_stampLabel->setToolTip(tr("Weniger als zwei Stützstellen gespeichert."));
        m_stampLabel->setStyleSheet(QString());
        break;
    case Stamp::Editor:
        m_stampLabel->setText(tr("CRC: Kurvenscheibeneditor"));
        m_stampLabel->setToolTip(tr("Die gespeicherten Stützstellen wurden vom Kurvenscheibeneditor geschrieben."));
        m_stampLabel->setStyleSheet(QStringLiteral("color: #2e7d32;"));
        break;
    case Stamp::Foreign:
        m_stampLabel->setText(tr("CRC: fremd"));
        m_stampLabel->setToolTip(tr("Die gespeicherten Stützstellen wurden nicht vom Kurvenscheibeneditor geschrieben."));
        m_stampLabel->setStyleSheet(QStringLiteral("color: #c62828;"));
        break;
    }
    m_designer->setWindowTitle(editorTitle());
}

void CamTableCell::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QFrame::changeEvent(event);
}
