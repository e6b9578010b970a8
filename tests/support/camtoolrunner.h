#pragma once

#include "testfiles.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

// Runs the built command-line tool as a user runs it and keeps what it said.
struct CamToolResult {
    int exitCode = -1;  // -1: crashed or timed out
    QByteArray out;
    QByteArray err;
    QJsonObject json() const { return QJsonDocument::fromJson(out).object(); }
};

#ifdef CAMTOOL_PATH
// The tool the test was built against (its path is given by the build).
inline CamToolResult camtool(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(CAMTOOL_PATH), arguments);
    CamToolResult result;
    if (!process.waitForFinished(120000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}
#endif
