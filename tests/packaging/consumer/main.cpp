#include <camdesigner/camdescription.h>

#include <QCoreApplication>
#include <QJsonObject>

#include <memory>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    std::unique_ptr<CamDescription> description(CamDescription::createCamDescription(nullptr, QByteArray()));
    if (!description || !description->isEmpty())
        return 1;
    return description->toJson().value(QStringLiteral("CircularLength")).toDouble() == 1.0 ? 0 : 1;
}
