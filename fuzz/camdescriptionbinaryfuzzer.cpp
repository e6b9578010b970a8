// Creates a cam description from arbitrary bytes, as the host hands them in
// (Qt 5 binary JSON), writes it back and deletes it.
#include "camdesigner/camdescription.h"

#include <QByteArray>
#include <QJsonObject>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    CamDescription *description = CamDescription::createCamDescription(nullptr, bytes);
    // The factory never fails: bad bytes give the defaults.
    if (!description)
        std::abort();
    const QJsonObject written = description->toJson();
    if (written.size() != 5)
        std::abort();
    delete description;
    return 0;
}
