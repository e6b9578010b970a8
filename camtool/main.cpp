#include "toolsupport.h"
#include "verbs.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <memory>
#include <vector>

#include <unistd.h>

namespace CamTool {

namespace {
QList<Verb> &registry()
{
    static QList<Verb> list;
    return list;
}
} // namespace

void registerVerb(const Verb &verb)
{
    registry().append(verb);
}

const QList<Verb> &verbs()
{
    return registry();
}

} // namespace CamTool

// Without XDG_RUNTIME_DIR Qt warns on stderr and then makes a private
// directory itself; making it first keeps stderr to the tool's own messages.
static void provideRuntimeDirectory()
{
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString path = QDir::tempPath() + QStringLiteral("/runtime-") + QString::number(::getuid());
    if (!QDir().mkpath(path))
        return;
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path));
}

static void printUsage()
{
    QString text = QStringLiteral("Usage: camtool VERB [options] [arguments]\n\nVerbs:\n");
    for (const CamTool::Verb &verb : CamTool::verbs())
        text += QStringLiteral("  %1  %2\n").arg(QString::fromLatin1(verb.name), -8).arg(QString::fromLatin1(verb.summary));
    text += QStringLiteral("\nRun 'camtool VERB --help' for the options of a verb.\n");
    CamTool::printError(text);
}

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    if (arguments.size() < 2 || arguments.at(1).startsWith(QLatin1Char('-'))) {
        const bool help = arguments.size() >= 2
            && (arguments.at(1) == QLatin1String("--help") || arguments.at(1) == QLatin1String("-h"));
        printUsage();
        return help ? CamTool::Success : CamTool::UsageError;
    }
    const QString verbName = arguments.takeAt(1);
    for (const CamTool::Verb &verb : CamTool::verbs()) {
        if (verbName != QLatin1String(verb.name))
            continue;
        // The application sees "camtool VERB" as its program name and the
        // verb's own arguments after it, so that usage lines name the verb.
        QByteArray program = QByteArray(argv[0]) + ' ' + verbName.toLocal8Bit();
        std::vector<char *> verbArgv { program.data() };
        verbArgv.insert(verbArgv.end(), argv + 2, argv + argc);
        verbArgv.push_back(nullptr);
        int verbArgc = argc - 1;
        std::unique_ptr<QCoreApplication> application;
        if (verb.needsWidgets) {
            // The tool needs no screen: widgets are made offscreen.
            if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
            provideRuntimeDirectory();
            application = std::make_unique<QApplication>(verbArgc, verbArgv.data());
        } else {
            application = std::make_unique<QCoreApplication>(verbArgc, verbArgv.data());
        }
        QCoreApplication::setApplicationName(QStringLiteral("camtool"));
        arguments[0] = QString::fromLocal8Bit(program);
        return verb.run(arguments);
    }
    CamTool::printError(QStringLiteral("camtool: unknown verb '%1'\n").arg(verbName));
    printUsage();
    return CamTool::UsageError;
}
