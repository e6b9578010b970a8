#pragma once

#include "valuecommand.h"

class CamDescriptionImplementation;

// Sets the circular length of the cam.
class SetCircularLengthCommand : public ValueCommand<CamDescriptionImplementation, double>
{
public:
    SetCircularLengthCommand(CamDescriptionImplementation *camDescription, double circularLength, QUndoCommand *parent = nullptr);
};
