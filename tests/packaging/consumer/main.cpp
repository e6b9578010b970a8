#include <bytearraysupport.h>
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
    if (description->toJson().value(QStringLiteral("CircularLength")).toDouble() != 1.0)
        return 1;
    // The standard CRC-32 check value, through the host's own library.
    const VxByteArraySupport::ByteArraySupport check(QByteArrayLiteral("123456789"), false);
    return check.crc32() == 0xCBF43926u ? 0 : 1;
}
