// The "plot" verb: the editor's stacked curve plots of a cam file, rendered
// without a display into a PNG, SVG or PDF file.

#include "camdesigner/camdescriptionimplementation.h"
#include "drivesession.h"
#include "model/cameditormodel.h"
#include "plots/curveplotstack.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QLayout>
#include <QCommandLineParser>
#include <QFileInfo>

#include <memory>

namespace {

const QSize DefaultSize(1000, 800);
constexpr int LargestSide = 10000;

bool parseSize(const QString &text, QSize *size)
{
    const QStringList parts = text.toLower().split(QLatin1Char('x'));
    bool widthOk = false;
    bool heightOk = false;
    if (parts.size() == 2)
        *size = QSize(parts.at(0).toInt(&widthOk), parts.at(1).toInt(&heightOk));
    return widthOk && heightOk && size->width() > 0 && size->height() > 0 && size->width() <= LargestSide
        && size->height() <= LargestSide;
}

int runPlot(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Renders the editor's curve plots of FILE (position, velocity and acceleration over the master\n"
        "axis) into PATH, as PNG, SVG or PDF by its suffix; with --drive and --table the curve stored\n"
        "in that cam table is drawn beside the calculated one."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Cam definition data (.json text, other suffixes binary)."));
    const QCommandLineOption outputOption(QStringLiteral("output"), QStringLiteral("The picture to write."),
                                          QStringLiteral("PATH"));
    const QCommandLineOption sizeOption(QStringLiteral("size"), QStringLiteral("Width and height in pixels (default 1000x800)."),
                                        QStringLiteral("WIDTHxHEIGHT"), QStringLiteral("1000x800"));
    parser.addOptions({ outputOption, sizeOption });

    std::unique_ptr<CamTool::DriveSession> session;
    const int parsed = CamTool::DriveSession::openIfAsked(parser, arguments, &session);
    if (parsed >= 0)
        return parsed;
    if (!parser.isSet(outputOption)) {
        CamTool::printError(QStringLiteral("camtool: --output is required\n") + parser.helpText());
        return CamTool::UsageError;
    }
    QSize size = DefaultSize;
    if (!parseSize(parser.value(sizeOption), &size)) {
        CamTool::printError(QStringLiteral("camtool: --size needs WIDTHxHEIGHT from 1 to %1, not '%2'\n")
                                .arg(LargestSide)
                                .arg(parser.value(sizeOption)));
        return CamTool::UsageError;
    }
    const QString output = parser.value(outputOption);
    const QString suffix = QFileInfo(output).suffix().toLower();
    if (suffix != QLatin1String("png") && suffix != QLatin1String("svg") && suffix != QLatin1String("pdf")) {
        CamTool::printError(QStringLiteral("camtool: the output must end in .png, .svg or .pdf, not '%1'\n").arg(output));
        return CamTool::UsageError;
    }

    CamDescriptionImplementation description(nullptr, QByteArray());
    if (!CamTool::loadCamFile(parser.positionalArguments().constFirst(), description))
        return CamTool::Failure;
    ParameterModel *parameters = session ? &session->model() : nullptr;
    CamEditorModel model(nullptr, parameters, &description);
    CurvePlotStack plots(&model, parameters, nullptr);
    plots.setPlotVisible(CurvePlot::Jerk, false);
    // Laid out at the size asked for, never shown: no display is needed.
    plots.resize(size);
    plots.layout()->activate();
    plots.refresh();
    QString reason;
    if (!plots.exportTo(output, size, -1, &reason)) {
        CamTool::printError(QStringLiteral("camtool: cannot write '%1': %2\n").arg(output, reason.isEmpty() ? QStringLiteral("the picture could not be rendered") : reason));
        return CamTool::Failure;
    }
    return CamTool::Success;
}

const CamTool::Registration registration({ "plot", "render the curve plots of a cam file to PNG, SVG or PDF", runPlot, true });

} // namespace
