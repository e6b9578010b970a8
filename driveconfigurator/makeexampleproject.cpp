// Writes the bundled example drive project: table 0 the cyclic VDI cam,
// table 3 the spline cam, table 7 a curve table imported from a TwinCat2
// file (grid points only, no cam definition data). Every table is written as
// the editor writes it, so that each carries the editor's CRC stamp.
//   makeexampleproject EXAMPLES_DIR OUTPUT
#include "driveproject.h"

#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "curves/motionplan.h"
#include "import/curvetextconverter.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodelimplementation.h"
#include "simulateddrive.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>

#include <cstdio>

namespace {

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeCam(DriveProject &project, int table, const QString &path)
{
    const QJsonObject data = QJsonDocument::fromJson(readFile(path)).object();
    if (data.isEmpty())
        return false;
    CamDescriptionImplementation description(nullptr, QByteArray());
    description.fromJson(data);
    ParameterModelImplementation parameters(nullptr, project.drive(), static_cast<unsigned short>(table),
                                            DriveProject::LivingSpace);
    CamEditorModel model(nullptr, &parameters, &description);
    parameters.writeGridPoints(model.motionPlan()->positions());
    project.setDescription(table, description.toJson());
    return parameters.storedGridPointCount() > 1;
}

bool writeCurveTable(DriveProject &project, int table, const QString &path)
{
    CurveTextConverter converter;
    converter.setFormat(CurveTextConverter::TwinCat2);
    converter.setText(QString::fromUtf8(readFile(path)));
    const QPolygonF points = converter.convert();
    ParameterModelImplementation parameters(nullptr, project.drive(), static_cast<unsigned short>(table),
                                            DriveProject::LivingSpace);
    parameters.writeGridPoints(points);
    return !points.isEmpty() && parameters.storedGridPointCount() == points.size();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: makeexampleproject EXAMPLES_DIR OUTPUT\n");
        return 2;
    }
    MessageBox::setHandler([](QWidget *, const MessageBox::Message &message) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(message.title), qPrintable(message.text));
        return QMessageBox::Ok;
    });
    const QString examples = QString::fromLocal8Bit(argv[1]);
    DriveProject project;
    if (!writeCam(project, 0, examples + QStringLiteral("/cyclic-cam.json"))
        || !writeCam(project, 3, examples + QStringLiteral("/spline-cam.json"))
        || !writeCurveTable(project, 7, examples + QStringLiteral("/curve-twincat2.txt"))) {
        std::fprintf(stderr, "makeexampleproject: a table could not be written\n");
        return 1;
    }
    QString errorString;
    if (!project.save(QString::fromLocal8Bit(argv[2]), &errorString)) {
        std::fprintf(stderr, "%s\n", qPrintable(errorString));
        return 1;
    }
    return 0;
}
