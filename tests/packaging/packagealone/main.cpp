#include <camdesigner/camdescription.h>
#include <camdesigner/camdesigner.h>

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

// Only the exported classes: a description from bytes, a designer that is
// not initialised yet (and so gives no button), and the stamp of no table.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QJsonObject cam { { "MotionPoints", QJsonArray { QJsonArray { 0, 0, "rest" }, QJsonArray { 90, 30, "rest" } } } };
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    const QByteArray bytes = QJsonDocument(cam).toBinaryData();
    QT_WARNING_POP
    std::unique_ptr<CamDescription> description(CamDescription::createCamDescription(nullptr, bytes));
    if (!description || description->toJson().value(QStringLiteral("MotionPoints")).toArray().size() != 2)
        return 1;
    std::unique_ptr<CamDesigner> designer(CamDesigner::createCamDesigner(nullptr, 3));
    if (!designer || CamDesigner::openCamDesignerButton(designer.get()))
        return 2;
    // The CRC-32 of no bytes.
    return CamDesigner::storedTableCrc(nullptr, 1, 3) == 0u ? 0 : 3;
}
