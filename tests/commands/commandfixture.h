#pragma once

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/controller.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"

#include "jsontext.h"

#include <memory>

// A cam description with its editor model and the editor's undo stack, as
// the main window wires them. Without a drive the scaling shows three
// decimal places.
struct CommandFixture {
    CamDescriptionImplementation description { nullptr, QByteArray() };
    std::unique_ptr<CamEditorModel> model;
    std::unique_ptr<Controller> stack = std::make_unique<Controller>();

    CommandFixture()
    {
        model = std::make_unique<CamEditorModel>(nullptr, nullptr, &description);
        description.setUndoStack(stack.get());
    }

    ~CommandFixture()
    {
        // Commands refer to the description; they go first, as in the editor.
        stack.reset();
    }
};
