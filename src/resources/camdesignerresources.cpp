#include "resources/camdesignerresources.h"

#include <QtGlobal>

// Q_INIT_RESOURCE declares the generated registration function, so it must be
// used at global scope, outside any namespace.
void initializeCamDesignerResources()
{
    Q_INIT_RESOURCE(camdesignerresources);
    Q_INIT_RESOURCE(camdesignertranslations);
}
