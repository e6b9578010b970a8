#pragma once

#include <QString>

class CamDescriptionImplementation;
class QCommandLineParser;
class QJsonDocument;

namespace CamTool {

void printError(const QString &text);
void printOutput(const QByteArray &bytes);
void printJson(const QJsonDocument &document);

// Parses the verb's arguments. Returns -1 when the verb is to go on, otherwise
// the exit code (0 after --help, 2 on a usage error, with the usage printed).
int parseArguments(QCommandLineParser &parser, const QStringList &arguments,
                   int minimumPositionals, int maximumPositionals);

// Loads cam definition data as the editor does (text JSON for a suffix that
// contains "json", binary otherwise). A file that cannot be opened gives
// false and a one-line error; an invalid one loads the defaults with a
// one-line warning on stderr.
bool loadCamFile(const QString &path, CamDescriptionImplementation &description);

} // namespace CamTool
