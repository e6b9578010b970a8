#pragma once

#include "parameters/parametermodelimplementation.h"

#include "simulateddrive.h"

#include <QStringList>

#include <memory>

class QCommandLineParser;

namespace CamTool {

// A simulated drive opened from its project file and a parameter model bound
// to one of its tables (in the living space of the first axis), as the
// editor binds it. Message boxes of the binding are recorded, not shown.
class DriveSession
{
public:
    static constexpr int LivingSpace = 1;

    DriveSession();
    ~DriveSession();
    DriveSession(const DriveSession &) = delete;
    DriveSession &operator=(const DriveSession &) = delete;

    // Adds --drive and --table to the verb's own options, parses the verb's
    // arguments (with the given number of positionals), opens the project
    // named by --drive and binds --table. Returns -1 to go on, otherwise the
    // exit code (with the reason printed). A missing file gives a fresh drive
    // only when mayCreate is set.
    int open(QCommandLineParser &parser, const QStringList &arguments, int positionals, bool mayCreate)
    {
        return open(parser, arguments, positionals, positionals, mayCreate);
    }
    // The same with a range of positionals.
    int open(QCommandLineParser &parser, const QStringList &arguments, int minimumPositionals,
             int maximumPositionals, bool mayCreate);

    // For verbs whose drive is optional: a session only when --drive or
    // --table is given, otherwise the plain parsing of one positional.
    // Returns -1 to go on, otherwise the exit code.
    static int openIfAsked(QCommandLineParser &parser, const QStringList &arguments,
                           std::unique_ptr<DriveSession> *session);

    MxSimulation::SimulatedDrive &drive() { return *m_drive; }
    ParameterModelImplementation &model() { return *m_model; }
    int table() const { return m_table; }
    QString path() const { return m_path; }
    // Texts of the message boxes the binding showed since the session opened.
    const QStringList &messages() const { return m_messages; }

    // Saves the drive project atomically; false with the reason printed.
    bool save();

private:
    std::unique_ptr<MxSimulation::SimulatedDrive> m_drive;
    std::unique_ptr<ParameterModelImplementation> m_model;
    QStringList m_messages;
    QString m_path;
    int m_table = 0;
};

} // namespace CamTool
