#pragma once

#include <QPointer>
#include <QUndoCommand>

// A command that sets one value of one object: redo applies the new value,
// undo the old one, both through the object's own setter, so that the object
// signals the change as for any other caller. Nothing merges; every push is
// one entry on the stack.
template <typename Target, typename Value>
class ValueCommand : public QUndoCommand
{
public:
    using Setter = void (Target::*)(Value);

    ~ValueCommand() override = default;

    void undo() override { apply(m_oldValue); }
    void redo() override { apply(m_newValue); }

    Value oldValue() const { return m_oldValue; }
    Value newValue() const { return m_newValue; }

protected:
    ValueCommand(Target *target, Setter setter, Value oldValue, Value newValue, QUndoCommand *parent)
        : QUndoCommand(parent)
        , m_target(target)
        , m_setter(setter)
        , m_oldValue(oldValue)
        , m_newValue(newValue)
    {
    }

private:
    void apply(Value value)
    {
        // The target may be gone when a closed editor's stack outlives it.
        if (Target *target = m_target.data())
            (target->*m_setter)(value);
    }

    QPointer<Target> m_target;
    Setter m_setter;
    Value m_oldValue;
    Value m_newValue;
};
