#include "CVorDPMEditHistory.h"

#include <QUndoStack>
#include <algorithm>
#include <memory>

#include "CVorDPMCommandManager.h"
#include "CVorDPMMemoryFiler.h"
#include "CVorDPMObject.h"
#include "CVorDPMTable.h"

namespace {

// One row touched by a step; `before` is null for a row the step created.
struct TouchedRow {
    CVorDPMObject* object;
    std::unique_ptr<CVorDPMObject> before;
    std::unique_ptr<CVorDPMObject> after;
};

class EditStep : public QUndoCommand {
public:
    EditStep(const QString& name, std::vector<TouchedRow> rows, CVorDPMEditHistory::Reload reload)
        : QUndoCommand(name), m_rows(std::move(rows)), m_reload(std::move(reload)) {}

    void undo() override { Apply(true); }
    // The first redo comes from the push, when the change has already been made.
    void redo() override {
        if (m_done) Apply(false);
        m_done = true;
    }

private:
    // Writes the states back as one command, nested in the dialog's, which therefore can still
    // roll the whole session back.
    void Apply(bool before) {
        CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
        commands->StartCommand();
        auto put = [&](const TouchedRow& row) {
            commands->AddModifiedObject(row.object);
            const CVorDPMObject* image = before ? row.before.get() : row.after.get();
            if (image)
                CVorDPMTable::Restore(row.object, *image);
            else
                row.object->SetDeleted(1);
        };
        if (before)
            std::for_each(m_rows.rbegin(), m_rows.rend(), put);
        else
            std::for_each(m_rows.begin(), m_rows.end(), put);
        commands->EndCommand();
        std::vector<CVorDPMObject*> touched;
        for (const TouchedRow& row : m_rows) touched.push_back(row.object);
        m_reload(touched);
    }

    std::vector<TouchedRow> m_rows;
    CVorDPMEditHistory::Reload m_reload;
    bool m_done = false;
};

}  // namespace

CVorDPMEditHistory::CVorDPMEditHistory(Reload reload, QObject* parent)
    : QObject(parent), m_reload(std::move(reload)), m_stack(new QUndoStack(this)) {}

bool CVorDPMEditHistory::Record(const QString& name, const std::function<bool()>& change,
                                const std::vector<CVorDPMObject*>& early) {
    std::vector<std::unique_ptr<CVorDPMObject>> earlyImages;
    for (CVorDPMObject* object : early)
        earlyImages.emplace_back(object ? object->Clone() : nullptr);
    CVorDPMCommandManager* commands = CVorDPMCommandManager::GetInstance();
    CVorDPMCommand* command = commands->StartCommand();
    const bool result = change();
    std::vector<TouchedRow> rows;
    for (const CVorDPMCommand::Change& changed : command->GetChanges()) {
        const auto known = std::find(early.begin(), early.end(), changed.object);
        const CVorDPMObject* before = known != early.end()
                                          ? earlyImages[size_t(known - early.begin())].get()
                                          : changed.before;
        // A row written back as it was (a value typed over with itself) is not part of the step.
        if (before && SameFields(*before, *changed.object)) continue;
        rows.push_back({changed.object,
                        std::unique_ptr<CVorDPMObject>(before ? before->Clone() : nullptr),
                        std::unique_ptr<CVorDPMObject>(changed.object->Clone())});
    }
    commands->EndCommand();
    if (!rows.empty()) m_stack->push(new EditStep(name, std::move(rows), m_reload));
    return result;
}

void CVorDPMEditHistory::Clear() {
    m_stack->clear();
}

bool CVorDPMEditHistory::SameFields(const CVorDPMObject& one, const CVorDPMObject& other) {
    CVorDPMMemoryFiler first;
    CVorDPMMemoryFiler second;
    one.VorDPMOutFields(&first);
    other.VorDPMOutFields(&second);
    return one.IsDeleted() == other.IsDeleted() && first.Values() == second.Values();
}
