#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <QPolygonF>
#include <QString>

#include <memory>

class CamDescriptionImplementation;
class MotionPlan;
class QCommandLineOption;
class QCommandLineParser;
class QJsonDocument;
class Scaling;
class Steps;

namespace CamTool {

void printError(const QString &text);
void printOutput(const QByteArray &bytes);
void printJson(const QJsonDocument &document);

// Parses the verb's arguments. Returns -1 when the verb is to go on, otherwise
// the exit code (0 after --help, 2 on a usage error, with the usage printed).
int parseArguments(QCommandLineParser &parser, const QStringList &arguments,
                   int minimumPositionals, int maximumPositionals);
// The same for the verbs that read one cam FILE; their own options are added
// to the parser beforehand.
int parseCamFileArguments(QCommandLineParser &parser, const QStringList &arguments, const QString &description);

// Loads cam definition data as the editor does (text JSON for a suffix that
// contains "json", binary otherwise). A file that cannot be opened, or that
// holds no cam definition data of the expected form, gives false and the
// reason on stderr; nothing is loaded.
bool loadCamFile(const QString &path, CamDescriptionImplementation &description);

// The plan the editor builds for the description's motion law (not yet sampled).
std::unique_ptr<MotionPlan> createPlan(const CamDescriptionImplementation &description, Scaling *scaling);

// --static H or --dynamic N, which stand in for a cam file's step settings,
// filled into chosen (left alone without them). False after printing why an
// option's value is no number.
bool chooseSteps(const QCommandLineParser &parser, const QCommandLineOption &staticOption,
                 const QCommandLineOption &dynamicOption, Steps *chosen);

// JSON has no NaN or infinity; they are written as the strings "NaN",
// "Infinity" and "-Infinity" so that the value is not lost. Finite numbers
// are written in the shortest form that reads back to the same double; only
// the sign of a zero is lost (Qt writes and reads -0.0 as 0).
QJsonValue jsonNumber(double value);
// [[x, y], ...] in the list's order.
QJsonArray pointsToJson(const QPolygonF &points);

} // namespace CamTool
