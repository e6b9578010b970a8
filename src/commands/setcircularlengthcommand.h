#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class CamDescriptionImplementation;

// Sets the circular length of the cam.
class SetCircularLengthCommand : public ValueCommand<CamDescriptionImplementation, double>
{
    Q_DECLARE_TR_FUNCTIONS(SetCircularLengthCommand)
public:
    SetCircularLengthCommand(CamDescriptionImplementation *camDescription, double circularLength, QUndoCommand *parent = nullptr);
};
