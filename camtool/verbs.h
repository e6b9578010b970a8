#pragma once

#include <QStringList>

// Each verb gets the program name followed by its own arguments (the verb
// itself removed) and returns the process exit code.
namespace CamTool {

enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

using VerbFunction = int (*)(const QStringList &arguments);

struct Verb {
    const char *name;
    const char *summary;
    VerbFunction run;
    // Verbs that create widgets (such as a progress dialog) get a QApplication
    // on the offscreen platform; the others a plain QCoreApplication.
    bool needsWidgets = false;
};

// Verbs register themselves with a static Registration in their own source file.
void registerVerb(const Verb &verb);
const QList<Verb> &verbs();

struct Registration {
    explicit Registration(const Verb &verb) { registerVerb(verb); }
};

} // namespace CamTool
