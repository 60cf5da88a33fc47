// Brackets changes in commands so that a failed edit can be rolled back: per open command it
// keeps the before-image of every modified object and the list of created ones.
#pragma once

#include <memory>
#include <vector>

#include "CVorDPMObject.h"
#include "VorDPMExport.h"

class VORDPM_API CVorDPMCommand {
public:
    int GetDepth() const { return m_depth; }
    // Whether anything was registered with the command (a change, or an object created).
    bool HasChanges() const { return !m_modified.empty() || !m_created.empty(); }
    // An object changed under the command, with its state before the first change; `before` is
    // null for an object the command created.
    struct Change {
        CVorDPMObject* object;
        const CVorDPMObject* before;
    };
    std::vector<Change> GetChanges() const;

private:
    friend class CVorDPMCommandManager;
    struct BeforeImage {
        CVorDPMObject* object;
        std::unique_ptr<CVorDPMObject> image;
    };
    int m_depth = 0;
    std::vector<BeforeImage> m_modified;
    std::vector<CVorDPMObject*> m_created;
};

// Commands nest: EndCommand hands the inner command's records to the enclosing one, so that
// aborting the outer command also undoes what the inner one committed. Calls without an open
// command are harmless: End returns 0, Abort does nothing, registrations are not recorded.
class VORDPM_API CVorDPMCommandManager {
public:
    static CVorDPMCommandManager* GetInstance();

    CVorDPMCommand* StartCommand();
    // Commits the innermost command; 1 on success, 0 when no command is open.
    int EndCommand();
    // Rolls back the innermost command: modified objects get their before-images back, created
    // ones are marked deleted. The rolled-back state is written by the next save.
    void AbortCommand();
    // Records the object's state before a change; only the first registration per command counts.
    void AddModifiedObject(CVorDPMObject* object);
    // Records a new object. One that no table holds yet is kept by the store until exit.
    void AddNewlyCreatedObject(CVorDPMObject* object, int filter = 0);

    int GetOpenCommandCount() const { return static_cast<int>(m_commands.size()); }
    // Forgets every open command (the objects they refer to are about to go away).
    void Reset();

private:
    CVorDPMCommandManager() = default;
    CVorDPMCommand* Current() const;

    std::vector<std::unique_ptr<CVorDPMCommand>> m_commands;
};
