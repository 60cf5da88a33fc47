// Internal: typed field transfer between rows and the filer, and the row definition macro.
#pragma once

#include <vector>

#include "CBinaryData.h"
#include "CVorDPMFiler.h"
#include "VorDPMTypes.h"

namespace VorDPMFieldIO {

inline void Read(CVorDPMFiler* filer, int& value) {
    value = filer->ReadInt();
}
inline void Read(CVorDPMFiler* filer, double& value) {
    value = filer->ReadDouble();
}
inline void Read(CVorDPMFiler* filer, QString& value) {
    value = filer->ReadString();
}
inline void Read(CVorDPMFiler* filer, QByteArray& value) {
    value = filer->ReadBytes();
}
inline void Read(CVorDPMFiler* filer, CBinaryData& value) {
    value = CBinaryData(filer->ReadBytes());
}
inline void Read(CVorDPMFiler* filer, emVorDPM_VALUETYPE& value) {
    value = static_cast<emVorDPM_VALUETYPE>(filer->ReadInt());
}

inline void Write(CVorDPMFiler* filer, int value) {
    filer->WriteInt(value);
}
inline void Write(CVorDPMFiler* filer, double value) {
    filer->WriteDouble(value);
}
inline void Write(CVorDPMFiler* filer, const QString& value) {
    filer->WriteString(value);
}
inline void Write(CVorDPMFiler* filer, const QByteArray& value) {
    filer->WriteBytes(value);
}
inline void Write(CVorDPMFiler* filer, const CBinaryData& value) {
    filer->WriteBytes(value.Bytes());
}
inline void Write(CVorDPMFiler* filer, emVorDPM_VALUETYPE value) {
    filer->WriteInt(static_cast<int>(value));
}

}  // namespace VorDPMFieldIO

// Defines the class record and the filer transfer of a row class from its VisitFields.
#define VORDPM_DEFINE_ROW(ClassName, Table, ...)                                                \
    const CVorDPMClassInfo& ClassName::ClassInfo() {                                            \
        static const CVorDPMClassInfo info{#ClassName, Table,                                   \
                                           std::vector<CVorDPMColumn> __VA_ARGS__,              \
                                           []() -> CVorDPMObject* { return new ClassName; }};   \
        return info;                                                                            \
    }                                                                                           \
    VOR::ErrorStatus ClassName::VorDPMInFields(CVorDPMFiler* filer) {                           \
        VisitFields(*this, [filer](auto& field) { VorDPMFieldIO::Read(filer, field); });        \
        return VOR::eOk;                                                                        \
    }                                                                                           \
    VOR::ErrorStatus ClassName::VorDPMOutFields(CVorDPMFiler* filer) const {                    \
        VisitFields(*this, [filer](const auto& field) { VorDPMFieldIO::Write(filer, field); }); \
        return VOR::eOk;                                                                        \
    }
