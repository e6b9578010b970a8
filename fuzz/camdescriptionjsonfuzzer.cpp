// Loads arbitrary text JSON into cam descriptions, as a ".json" file is read,
// and checks that what is written back reads back the same.
#include "camdesigner/camdescriptionimplementation.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return 0;
    const QJsonObject object = document.object();

    CamDescriptionImplementation description(nullptr, QByteArray());
    description.fromJson(object);
    // A second load replaces every point of the first.
    description.fromJson(object);
    const QJsonObject written = description.toJson();
    description.summaryHtml();

    // What is written reads back to the same data.
    CamDescriptionImplementation reread(nullptr, QByteArray());
    reread.fromJson(written);
    if (reread.toJson() != written)
        std::abort();
    if (reread.summaryHtml() != description.summaryHtml())
        std::abort();
    return 0;
}
