#include "VorDPMNames.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>

namespace {

// A high surrogate not followed by a low one, or a low one not preceded by a high one: such a
// name cannot be written as a file name (it would come back with U+FFFD).
bool HasLoneSurrogate(const QString& name) {
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
            ++i;
            continue;
        }
        if (name[i].isSurrogate()) return true;
    }
    return false;
}

}  // namespace

const QString& VorDPMNames::ForbiddenCharacters() {
    static const QString characters = QStringLiteral("\\/:*?\"<>|");
    return characters;
}

bool VorDPMNames::ContainsAny(const QString& text, const QString& characters) {
    return std::any_of(text.begin(), text.end(),
                       [&characters](QChar c) { return characters.contains(c); });
}

bool VorDPMNames::IsValidName(const QString& name) {
    // A leading dot hides the file from listings (and ".recycle" is the store's own folder).
    if (name.isEmpty() || name.startsWith(QLatin1Char('.'))) return false;
    if (name.endsWith(QLatin1Char('.')) || name.endsWith(QLatin1Char(' '))) return false;
    if (HasLoneSurrogate(name)) return false;
    for (const QChar c : name) {
        if (c.unicode() < 0x20 || c.unicode() == 0x7f) return false;
        if (ForbiddenCharacters().contains(c)) return false;
    }
    static const QRegularExpression reserved(
        QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])(\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return !reserved.match(name).hasMatch();
}

QString VorDPMNames::WhyInvalid(const QString& name) {
    if (IsValidName(name)) return QString();
    return QCoreApplication::translate("VorDPMStore", "\"%1\"不能用作名称").arg(name);
}

int VorDPMNames::IndexOf(const QStringList& names, const QString& name) {
    for (int i = 0; i < names.size(); ++i)
        if (names[i].compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

bool VorDPMNames::Less(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

void VorDPMNames::Sort(QStringList& names) {
    std::sort(names.begin(), names.end(), Less);
}

void VorDPMNames::InsertSorted(QStringList& names, const QString& name) {
    names.insert(std::upper_bound(names.cbegin(), names.cend(), name, Less), name);
}

bool VorDPMNames::RemoveSorted(QStringList& names, const QString& name) {
    const auto found = std::lower_bound(names.cbegin(), names.cend(), name, Less);
    if (found == names.cend() || *found != name) return false;
    names.erase(found);
    return true;
}
