#include "VorDPMLastError.h"

namespace {
QString& Storage() {
    static QString reason;
    return reason;
}
}  // namespace

void VorDPMLastError::Set(const QString& reason) {
    Storage() = reason;
}

QString VorDPMLastError::Get() {
    return Storage();
}

void VorDPMLastError::Clear() {
    Storage().clear();
}
