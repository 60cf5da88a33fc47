#include "VorDPMReasons.h"

#include <QCoreApplication>

#include "VorDPMLastError.h"
#include "VorDPMNames.h"

namespace {

VOR::ErrorStatus Refuse(const QString& reason, VOR::ErrorStatus status) {
    VorDPMLastError::Set(reason);
    return status;
}

}  // namespace

QString VorDPMReasons::TextOf(std::initializer_list<CodeText> table, int code,
                              const char* fallback) {
    for (const CodeText& entry : table)
        if (entry.code == code) return QCoreApplication::translate("VorDPMStore", entry.text);
    return QCoreApplication::translate("VorDPMStore", fallback).arg(code);
}

VOR::ErrorStatus VorDPMReasons::CheckName(const QString& name) {
    const QString invalid = VorDPMNames::WhyInvalid(name);
    return invalid.isEmpty() ? VOR::eOk : Refuse(invalid, VOR::eInvalidName);
}

VOR::ErrorStatus VorDPMReasons::NameExists(const QString& name) {
    return Refuse(QCoreApplication::translate("VorDPMStore", "\"%1\"已存在").arg(name),
                  VOR::eNameExists);
}

VOR::ErrorStatus VorDPMReasons::NotFound(const QString& name) {
    return Refuse(QCoreApplication::translate("VorDPMStore", "\"%1\"不存在").arg(name),
                  VOR::eNotFound);
}

VOR::ErrorStatus VorDPMReasons::FolderGone(const QString& folder) {
    return Refuse(
        QCoreApplication::translate("VorDPMStore", "%1: 已被其他用户删除或重命名").arg(folder),
        VOR::eFileError);
}

QString VorDPMReasons::ChangedElsewhere(const QString& path) {
    return QCoreApplication::translate("VorDPMStore", "%1: 自加载以来已被其他用户修改").arg(path);
}

QString VorDPMReasons::GoneElsewhere(const QString& path) {
    return QCoreApplication::translate("VorDPMStore", "%1: 自加载以来已被其他用户删除或重命名")
        .arg(path);
}

QString VorDPMReasons::NotARegularFile(const QString& path) {
    return QCoreApplication::translate("VorDPMStore", "%1: 不是普通文件").arg(path);
}
