#include "CVorDPMCommandScope.h"

#include "CVorDPMCommandManager.h"

CVorDPMCommandScope::CVorDPMCommandScope() : m_commands(CVorDPMCommandManager::GetInstance()) {
    m_commands->StartCommand();
}

CVorDPMCommandScope::~CVorDPMCommandScope() {
    Abort();
}

int CVorDPMCommandScope::Commit() {
    if (!m_open) return 0;
    m_open = false;
    return m_commands->EndCommand();
}

void CVorDPMCommandScope::Abort() {
    if (!m_open) return;
    m_open = false;
    m_commands->AbortCommand();
}
