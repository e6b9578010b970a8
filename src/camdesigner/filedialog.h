#pragma once

// The editor asks for file names through the host suite's seam, the same one
// the host uses: a handler the host installs answers the editor's dialogs too.
#include <filedialog.h>
