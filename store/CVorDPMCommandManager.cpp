#include "CVorDPMCommandManager.h"

#include <algorithm>

#include "CVorDPMTable.h"

std::vector<CVorDPMCommand::Change> CVorDPMCommand::GetChanges() const {
    std::vector<Change> changes;
    changes.reserve(m_modified.size() + m_created.size());
    for (const BeforeImage& modified : m_modified)
        changes.push_back({modified.object, modified.image.get()});
    for (CVorDPMObject* created : m_created) changes.push_back({created, nullptr});
    return changes;
}

CVorDPMCommandManager* CVorDPMCommandManager::GetInstance() {
    static CVorDPMCommandManager manager;
    return &manager;
}

CVorDPMCommand* CVorDPMCommandManager::Current() const {
    return m_commands.empty() ? nullptr : m_commands.back().get();
}

CVorDPMCommand* CVorDPMCommandManager::StartCommand() {
    auto command = std::make_unique<CVorDPMCommand>();
    command->m_depth = static_cast<int>(m_commands.size()) + 1;
    m_commands.push_back(std::move(command));
    return m_commands.back().get();
}

int CVorDPMCommandManager::EndCommand() {
    if (m_commands.empty()) return 0;
    std::unique_ptr<CVorDPMCommand> done = std::move(m_commands.back());
    m_commands.pop_back();
    CVorDPMCommand* outer = Current();
    if (!outer) return 1;
    for (auto& before : done->m_modified) {
        const bool known = std::any_of(outer->m_modified.begin(), outer->m_modified.end(),
                                       [&](const auto& b) { return b.object == before.object; });
        if (!known) outer->m_modified.push_back(std::move(before));
    }
    outer->m_created.insert(outer->m_created.end(), done->m_created.begin(), done->m_created.end());
    return 1;
}

void CVorDPMCommandManager::AbortCommand() {
    if (m_commands.empty()) return;
    std::unique_ptr<CVorDPMCommand> aborted = std::move(m_commands.back());
    m_commands.pop_back();
    for (auto it = aborted->m_modified.rbegin(); it != aborted->m_modified.rend(); ++it)
        CVorDPMTable::Restore(it->object, *it->image);
    for (CVorDPMObject* created : aborted->m_created) created->SetDeleted(1);
}

void CVorDPMCommandManager::AddModifiedObject(CVorDPMObject* object) {
    CVorDPMCommand* command = Current();
    if (!command || !object) return;
    const bool known = std::any_of(command->m_modified.begin(), command->m_modified.end(),
                                   [&](const auto& b) { return b.object == object; });
    const bool created = std::find(command->m_created.begin(), command->m_created.end(), object) !=
                         command->m_created.end();
    if (known || created) return;
    command->m_modified.push_back({object, std::unique_ptr<CVorDPMObject>(object->Clone())});
}

void CVorDPMCommandManager::AddNewlyCreatedObject(CVorDPMObject* object, int) {
    if (!object) return;
    if (!object->GetTable()) {
        CVorDPMTable::KeepRefused(object);
        return;
    }
    if (CVorDPMCommand* command = Current()) command->m_created.push_back(object);
}

void CVorDPMCommandManager::Reset() {
    m_commands.clear();
}
