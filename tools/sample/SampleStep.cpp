#include "SampleStep.h"

#include "CVorDPMManager.h"

bool SampleStep::Ok(VOR::ErrorStatus status, const QString& what, QString& error) {
    if (status == VOR::eOk) return true;
    error = QStringLiteral("%1: store status %2").arg(what).arg(static_cast<int>(status));
    const QString reason = CVorDPMManager::GetLastErrorText();
    if (!reason.isEmpty()) error += QStringLiteral(" (%1)").arg(reason);
    return false;
}

bool SampleStep::Fail(const QString& what, QString& error) {
    return Ok(VOR::eFail, what, error);
}
