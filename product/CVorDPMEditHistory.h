// The undo history of the product editor: every change of its tables becomes one step that keeps
// the rows it touched as they were before and after, so that undo and redo write exactly those
// states back. The steps run inside the command of the dialog that hosts the editor, so leaving
// that dialog without saving still drops everything; a save starts the history anew.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

class CVorDPMObject;
class QUndoStack;

class CVorDPMEditHistory : public QObject {
    Q_OBJECT

public:
    // Shows the store's rows again after an undo or a redo; `touched` are the rows the step
    // wrote, in the order the step first changed them.
    using Reload = std::function<void(const std::vector<CVorDPMObject*>& touched)>;

    CVorDPMEditHistory(Reload reload, QObject* parent);

    QUndoStack* Stack() const { return m_stack; }
    // Runs `change` as one step named `name`, recorded when it left a row other than it was.
    // `early` are rows whose present state is their state before the change, for code that
    // registers a row with the command manager only after changing it. Returns what `change`
    // returns.
    bool Record(const QString& name, const std::function<bool()>& change,
                const std::vector<CVorDPMObject*>& early = {});
    // Forgets every step: after a save the rows are written and may be reloaded.
    void Clear();
    // Whether two states of a row hold the same fields and deleted mark.
    static bool SameFields(const CVorDPMObject& one, const CVorDPMObject& other);

private:
    Reload m_reload;
    QUndoStack* m_stack;
};
