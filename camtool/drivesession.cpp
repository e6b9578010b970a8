#include "drivesession.h"

#include <messagebox.h>
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace CamTool {

namespace {
const QString DriveOption = QStringLiteral("drive");
const QString TableOption = QStringLiteral("table");
} // namespace

DriveSession::DriveSession()
{
    MessageBox::setHandler([this](QWidget *, const MessageBox::Message &message) {
        m_messages.append(message.text);
        return QMessageBox::Ok;
    });
}

DriveSession::~DriveSession()
{
    m_model.reset();
    MessageBox::setHandler(MessageBox::Handler());
}

int DriveSession::openIfAsked(QCommandLineParser &parser, const QStringList &arguments,
                              std::unique_ptr<DriveSession> *session)
{
    if (!arguments.contains(QStringLiteral("--drive")) && !arguments.contains(QStringLiteral("--table")))
        return parseArguments(parser, arguments, 1, 1);
    *session = std::make_unique<DriveSession>();
    return (*session)->open(parser, arguments, 1, false);
}

int DriveSession::open(QCommandLineParser &parser, const QStringList &arguments, int minimumPositionals,
                       int maximumPositionals, bool mayCreate)
{
    parser.addOption(QCommandLineOption(DriveOption, QStringLiteral("Drive project file (text JSON)."),
                                        QStringLiteral("project")));
    parser.addOption(QCommandLineOption(TableOption, QStringLiteral("Cam table, 0 to 15."), QStringLiteral("n")));
    const int parsed = parseArguments(parser, arguments, minimumPositionals, maximumPositionals);
    if (parsed >= 0)
        return parsed;
    if (!parser.isSet(DriveOption) || !parser.isSet(TableOption)) {
        printError(QStringLiteral("camtool: --drive and --table are required\n") + parser.helpText());
        return UsageError;
    }
    bool ok = false;
    m_table = parser.value(TableOption).toInt(&ok);
    if (!ok || m_table < 0 || m_table >= ParameterModelImplementation::CamTableCount) {
        printError(QStringLiteral("camtool: the table must be a number from 0 to 15, not '%1'\n")
                       .arg(parser.value(TableOption)));
        return UsageError;
    }
    m_path = parser.value(DriveOption);
    if (!mayCreate && !QFileInfo::exists(m_path)) {
        printError(QStringLiteral("camtool: no drive project '%1'\n").arg(m_path));
        return Failure;
    }
    m_drive = std::make_unique<MxSimulation::SimulatedDrive>();
    QString errorString;
    if (!m_drive->load(m_path, &errorString)) {
        printError(QStringLiteral("camtool: cannot use drive project '%1': %2\n").arg(m_path, errorString));
        return Failure;
    }
    m_model = std::make_unique<ParameterModelImplementation>(nullptr, m_drive.get(), quint16(m_table), LivingSpace);
    return -1;
}

bool DriveSession::save()
{
    QString errorString;
    if (m_drive->save(m_path, &errorString))
        return true;
    printError(QStringLiteral("camtool: cannot save drive project '%1': %2\n").arg(m_path, errorString));
    return false;
}

} // namespace CamTool
