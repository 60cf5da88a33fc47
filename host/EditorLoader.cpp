#include "EditorLoader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <typeinfo>

namespace {

const char kEntryName[] = "ExportVorDPMEditor";
const QString kLibraryFile = QStringLiteral("libVorDPMEditor.so");

}  // namespace

// Under the Itanium C++ ABI a free function at global scope is mangled as "_Z", the length and
// text of its name, then its parameter types; the type name of the function type is "F", the
// result type, the same parameter types and "E". Deriving the symbol from the declaration keeps
// the host and the header in step.
QByteArray EditorLoader::EntrySymbol() {
    const QByteArray functionType = typeid(decltype(ExportVorDPMEditor)).name();
    const QByteArray parameters = functionType.mid(2, functionType.size() - 3);
    return "_Z" + QByteArray::number(qstrlen(kEntryName)) + kEntryName + parameters;
}

QString EditorLoader::Locate(const QString& requested) {
    if (!requested.isEmpty()) return requested;
    const QString fromEnvironment = qEnvironmentVariable("VORDPM_EDITOR");
    if (!fromEnvironment.isEmpty()) return fromEnvironment;
    const QDir programDir(QCoreApplication::applicationDirPath());
    const QStringList candidates = {programDir.filePath(kLibraryFile),
                                    programDir.filePath(QStringLiteral(VORDPM_INSTALLED_EDITOR))};
    for (const QString& candidate : candidates)
        if (QFileInfo::exists(candidate)) return QDir::cleanPath(candidate);
    return QStringLiteral(VORDPM_BUILT_EDITOR);
}

bool EditorLoader::Load(const QString& path) {
    m_entry = nullptr;
    if (!QFileInfo(path).isFile()) return Fail(tr("找不到编辑器库：%1").arg(path));
    m_library.setFileName(QFileInfo(path).absoluteFilePath());
    if (!m_library.load())
        return Fail(tr("无法加载编辑器库 %1：%2").arg(path, m_library.errorString()));
    m_entry = reinterpret_cast<Entry>(m_library.resolve(EntrySymbol().constData()));
    if (!m_entry) {
        m_library.unload();
        return Fail(
            tr("编辑器库 %1 没有导出入口函数 %2，它不是本编辑器的库，或与本程序的版本不符。")
                .arg(path, QString::fromLatin1(kEntryName)));
    }
    m_error.clear();
    return true;
}

bool EditorLoader::Fail(const QString& error) {
    m_error = error;
    return false;
}
