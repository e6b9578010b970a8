#pragma once

// The editor shows its message boxes through the host suite's seam, the same
// one the host uses: a handler the host installs answers the editor's boxes too.
#include <messagebox.h>
