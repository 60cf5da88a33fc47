#include "VorDPMNames.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <climits>

#include "CVorDPMTempFile.h"

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

// Portable to every file system the store's libraries may be copied to, and found again.
bool IsPortableName(const QString& name) {
    // A leading dot hides the file from listings (and ".recycle" is the store's own folder).
    if (name.isEmpty() || name.startsWith(QLatin1Char('.'))) return false;
    if (name.endsWith(QLatin1Char('.')) || name.endsWith(QLatin1Char(' '))) return false;
    if (HasLoneSurrogate(name)) return false;
    for (const QChar c : name) {
        if (c.unicode() < 0x20 || c.unicode() == 0x7f) return false;
        if (VorDPMNames::ForbiddenCharacters().contains(c)) return false;
    }
    static const QRegularExpression reserved(
        QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])(\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return !reserved.match(name).hasMatch();
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

int VorDPMNames::MaxNameBytes() {
    // The longest file name made from a name is a new file's temporary copy,
    // "<name>.DPD.new-<32 hex digits>", with room kept for a journal beside it ("-journal"):
    // that copy keeps its journal in memory today, and the limit stays what it always was, so
    // that no name accepted once is refused later. A library copy's temporary folder
    // (".<name>.new-<32 hex digits>") and removed files ("<name>.DPD.<time>") are shorter.
    constexpr int kExtension = 4;  // ".DPD"
    constexpr int kJournal = 8;    // "-journal", SQLite's
    return NAME_MAX - kExtension - CVorDPMTempFile::kNameSuffixBytes - kJournal;
}

QString VorDPMNames::WhyInvalid(const QString& name) {
    if (!IsPortableName(name))
        return QCoreApplication::translate("VorDPMStore", "\"%1\"不能用作名称").arg(name);
    if (QFile::encodeName(name).size() > MaxNameBytes())
        return QCoreApplication::translate("VorDPMStore",
                                           "\"%1\"太长: 名称最多可有 %2 个字节(UTF-8 编码)")
            .arg(name)
            .arg(MaxNameBytes());
    return QString();
}

bool VorDPMNames::IsValidName(const QString& name) {
    return IsPortableName(name) && QFile::encodeName(name).size() <= MaxNameBytes();
}

int VorDPMNames::IndexOf(const QStringList& names, const QString& name) {
    for (int i = 0; i < names.size(); ++i)
        if (names[i].compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

namespace {

// a.compare(b, Qt::CaseInsensitive), with the leading ASCII characters compared in place: a
// listing sorts tens of thousands of names, nearly all of them ASCII. Up to the first other
// character both agree (ASCII letters fold to lower case, the rest to themselves); from there
// on Qt compares, which it would do no differently after an equal ASCII start.
int CompareWithoutCase(QStringView a, QStringView b) {
    const auto fold = [](char16_t c) -> char16_t { return c >= u'A' && c <= u'Z' ? c + 32 : c; };
    const qsizetype common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        const char16_t x = a[i].unicode();
        const char16_t y = b[i].unicode();
        if (x >= 0x80 || y >= 0x80) return a.mid(i).compare(b.mid(i), Qt::CaseInsensitive);
        if (fold(x) != fold(y)) return fold(x) < fold(y) ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

}  // namespace

bool VorDPMNames::Less(const QString& a, const QString& b) {
    const int folded = CompareWithoutCase(a, b);
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
