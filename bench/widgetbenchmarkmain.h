#pragma once

#include <messagebox.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>

// The main() of a benchmark of widgets: an offscreen application unless a
// platform is chosen, message boxes answered at once, the offscreen
// platform's warnings dropped, and settings kept in a scratch directory.
inline int runWidgetBenchmarks(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &message) {
        if (!message.contains(QLatin1String("This plugin does not support")))
            fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    });
    MessageBox::setHandler([](QWidget *, const MessageBox::Message &) { return QMessageBox::Ok; });
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
