#include "camdesigner/camdescriptionimplementation.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

// JSON has no NaN or infinity and would print null, which hides what a
// binary file really holds: they are printed as the strings "NaN",
// "Infinity" and "-Infinity", as the other verbs print them. The file is not
// refused, since looking into it is what this verb is for.
QJsonValue visible(const QJsonValue &value)
{
    if (value.isDouble())
        return CamTool::jsonNumber(value.toDouble());
    if (value.isArray()) {
        QJsonArray array;
        for (const QJsonValue &element : value.toArray())
            array.append(visible(element));
        return array;
    }
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        QJsonObject shown;
        for (auto member = object.constBegin(); member != object.constEnd(); ++member)
            shown.insert(member.key(), visible(member.value()));
        return shown;
    }
    return value;
}

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
    CamTool::printJson(QJsonDocument(visible(description.toJson()).toObject()));
    return CamTool::Success;
}

const CamTool::Registration registration({ "show", "print the normalised cam definition data of a file", runShow });

} // namespace
