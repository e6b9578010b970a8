#include <bytearraysupport.h>
#include <camdesigner/camdescription.h>

#include <QCoreApplication>
#include <QJsonObject>

#include <memory>

// The exported factory's defaults; the CRC-32 check value from the host's own library.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    std::unique_ptr<CamDescription> description(CamDescription::createCamDescription(nullptr, QByteArray()));
    const bool defaults = description && description->isEmpty()
        && description->toJson().value(QStringLiteral("CircularLength")).toDouble() == 1.0;
    return defaults && VxByteArraySupport::ByteArraySupport("123456789", false).crc32() == 0xCBF43926u ? 0 : 1;
}
