#pragma once

#include <QUndoStack>

// The editor's undo stack. The main window creates it without a parent and
// hands it to the cam description and the editing commands.
class Controller : public QUndoStack
{
    Q_OBJECT
public:
    using QUndoStack::QUndoStack;
};
