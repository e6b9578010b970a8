#pragma once

#include "valuecommand.h"

#include "mxcamdesigner_export.h"

class CamDescriptionImplementation;

// Sets the circular length of the cam.
class MXCAMDESIGNER_EXPORT SetCircularLengthCommand : public ValueCommand<CamDescriptionImplementation, double>
{
public:
    SetCircularLengthCommand(CamDescriptionImplementation *camDescription, double circularLength, QUndoCommand *parent = nullptr);
};
