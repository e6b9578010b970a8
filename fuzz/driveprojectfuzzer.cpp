// Loads arbitrary bytes as a drive project file, binds a cam table to the
// loaded drive as the editor does (read-back, derivatives, stamp, summary),
// and checks that what the drive writes back loads to the same project.
#include "parameters/parametermodelimplementation.h"
#include "simulateddrive.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // The first byte chooses the table, the rest is the project file.
    if (size < 1)
        return 0;
    const unsigned short table = data[0] % 17; // 16 is no table at all
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));

    MxSimulation::SimulatedDrive drive;
    QString error;
    if (!drive.fromJson(bytes, &error)) {
        if (error.isEmpty())
            std::abort(); // a refusal always says why
        return 0;
    }
    const QByteArray written = drive.toJson();
    MxSimulation::SimulatedDrive reloaded;
    if (!reloaded.fromJson(written, &error) || reloaded.toJson() != written)
        std::abort();

    ParameterModelImplementation model(nullptr, &drive, table, 1);
    model.storedGridPoints();
    model.storedTableSummary();
    model.updateCrC();
    return 0;
}
