#pragma once

// Registers the editor's icons, style sheet and translations with Qt's
// resource system. The shared library registers them when it is loaded; a
// static build of it does not, so whoever builds the editor's widgets or
// loads a translation calls this first. Calling it again does no harm.
void initializeCamDesignerResources();
