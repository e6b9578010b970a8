#include "camdesigner/camdescriptionimplementation.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QJsonDocument>

namespace {

int runShow(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints the normalised cam definition data of FILE."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Cam definition data (.json text, other suffixes binary)."));
    const int parsed = CamTool::parseArguments(parser, arguments, 1, 1);
    if (parsed >= 0)
        return parsed;

    CamDescriptionImplementation description(nullptr, QByteArray());
    if (!CamTool::loadCamFile(parser.positionalArguments().constFirst(), description))
        return CamTool::Failure;
    CamTool::printJson(QJsonDocument(description.toJson()));
    return CamTool::Success;
}

const CamTool::Registration registration({ "show", "print the normalised cam definition data of a file", runShow });

} // namespace
