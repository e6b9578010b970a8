// The drive configurator: a host of the cam editor library with one
// simulated drive. Without arguments it opens the bundled example project.
#include "camtablecell.h"
#include "camtablepage.h"
#include "driveconfiguratorwindow.h"
#include "driveproject.h"

#include "atomicfilewriter.h"
#include "messagebox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>
#include <QTextStream>
#include <QTimer>

#include <cstdio>

namespace {

// Waits until the widget has been painted once.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget *widget) { widget->installEventFilter(this); }
    bool painted = false;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted = true;
        return false;
    }
};

void waitForPaint(QWidget *widget)
{
    PaintWatch watch(widget);
    QElapsedTimer limit;
    limit.start();
    while (!watch.painted && limit.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    QCoreApplication::processEvents();
}

QMainWindow *openEditor(DriveConfiguratorWindow &window, int table)
{
    window.page()->cell(table)->button()->click();
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *editor = qobject_cast<QMainWindow *>(widget);
        if (editor && editor != &window && editor->isVisible() && editor->windowTitle()
                == window.page()->cell(table)->editorTitle())
            return editor;
    }
    return nullptr;
}

void settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

long residentKilobytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly | QIODevice::Text))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toLong();
    }
    return -1;
}

bool screenshot(QWidget *widget, const QString &path)
{
    if (!widget)
        return false;
    // Saved as every file is: whole, or the old picture stays.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QString reason;
    if (!buffer.open(QIODevice::WriteOnly) || !widget->grab().save(&buffer, "PNG")
        || !VxUtilities::AtomicFileWriter::write(path, bytes, &reason)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(reason));
        return false;
    }
    std::printf("%s\n", qPrintable(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath())));
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Mx"));
    QCoreApplication::setApplicationName(QStringLiteral("DriveConfigurator"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Drive configurator: the cam tables of a simulated drive."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("PROJECT"), QStringLiteral("Drive project file (*.mxdrive)."));
    const QCommandLineOption screenshotsOption(QStringLiteral("screenshots"),
                                               QStringLiteral("Writes host.png and editor.png into DIR and quits."),
                                               QStringLiteral("DIR"));
    const QCommandLineOption measureOption(QStringLiteral("measure"),
                                           QStringLiteral("Prints the start-up time and the resident memory after "
                                                          "opening every editor once, and quits."));
    parser.addOptions({ screenshotsOption, measureOption });
    parser.process(application);

    // Screenshots and measurements run without a user: a message box would
    // wait for a click forever, so its text goes to stderr and the run fails.
    const bool unattended = parser.isSet(measureOption) || parser.isSet(screenshotsOption);
    bool messageShown = false;
    if (unattended) {
        MessageBox::setHandler([&messageShown](QWidget *, const MessageBox::Message &message) {
            const QByteArray text = (message.title + QLatin1Char('\n') + message.text + QLatin1Char('\n')).toLocal8Bit();
            std::fwrite(text.constData(), 1, size_t(text.size()), stderr);
            messageShown = true;
            return QMessageBox::Cancel;
        });
    }

    const QString path = parser.positionalArguments().value(0, QStringLiteral(MX_EXAMPLE_PROJECT));
    DriveConfiguratorWindow window;
    if (QFileInfo::exists(path) && !window.openProject(path) && unattended)
        return 1;
    window.show();

    if (parser.isSet(measureOption)) {
        waitForPaint(window.page()->cell(DriveProject::TableCount - 1)->button());
        const qint64 startUp = sinceStart.elapsed();
        for (int table = 0; table < DriveProject::TableCount; ++table) {
            if (QMainWindow *editor = openEditor(window, table)) {
                waitForPaint(editor);
                editor->close();
            }
            settle();
        }
        std::printf("start-up to the painted page: %lld ms\n", static_cast<long long>(startUp));
        std::printf("resident memory after opening and closing every editor: %ld MB\n",
                    residentKilobytes() / 1024);
        window.project()->setModified(false);
        return messageShown ? 1 : 0;
    }
    if (parser.isSet(screenshotsOption)) {
        const QString directory = parser.value(screenshotsOption);
        QDir().mkpath(directory);
        waitForPaint(window.page()->cell(DriveProject::TableCount - 1)->button());
        bool written = screenshot(&window, directory + QStringLiteral("/host.png"));
        QMainWindow *editor = openEditor(window, 0);
        if (editor) {
            editor->resize(1400, 900);
            waitForPaint(editor);
        }
        written = screenshot(editor, directory + QStringLiteral("/editor.png")) && written;
        if (editor)
            editor->close();
        settle();
        window.project()->setModified(false);
        return written && !messageShown ? 0 : 1;
    }
    return application.exec();
}
