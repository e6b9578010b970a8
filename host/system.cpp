#include "system.h"

namespace MxSystem {

System *System::instance()
{
    static System system;
    return &system;
}

} // namespace MxSystem
