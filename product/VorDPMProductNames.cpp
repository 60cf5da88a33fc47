#include "VorDPMProductNames.h"

#include <QCoreApplication>

#include "CVorDPMLibraryManager.h"
#include "VorDPMNames.h"

namespace VorDPMProductNames {

namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("VorDPMProductNames", text);
}

// A blank is refused as well, although the message does not list it: product names are passed
// on in naming rules and scripts, where a blank separates words.
const QString& InvalidCharacters() {
    static const QString characters = VorDPMNames::ForbiddenCharacters() + QLatin1Char(' ');
    return characters;
}

}  // namespace

QString Problem(const CVorDPMLibraryManager* library, const QString& name,
                const QString& renamedFrom) {
    if (name.isEmpty()) return Tr("请输入产品名称");
    if (VorDPMNames::ContainsAny(name, InvalidCharacters()))
        return Tr("名字不能包含下列任何字符：") + QLatin1Char('\n') +
               VorDPMNames::ForbiddenCharacters();
    const bool sameName = name.compare(renamedFrom, Qt::CaseInsensitive) == 0;
    if (library && !sameName && library->HasDPD(name))
        return name + Tr("已存在，请指定其他产品名！");
    return QString();
}

}  // namespace VorDPMProductNames
