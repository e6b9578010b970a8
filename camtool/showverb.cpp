#include "camdesigner/camdescriptionimplementation.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QJsonDocument>

namespace {

int runShow(const QStringList &arguments)
{
    QCommandLineParser parser;
    const int parsed = CamTool::parseCamFileArguments(
        parser, arguments, QStringLiteral("Prints the normalised cam definition data of FILE."));
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
