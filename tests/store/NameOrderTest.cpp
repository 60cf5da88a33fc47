// The order of the store's listings: without regard to case as Qt compares, names equal but for
// case in code-unit order. Less compares leading ASCII characters itself; it must agree with Qt
// wherever other characters come in.
#include <gtest/gtest.h>

#include "VorDPMNames.h"

namespace {

bool QtOrder(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

}  // namespace

TEST(NameOrder, AgreesWithQtsCaseInsensitiveCompare) {
    const QStringList names = {
        QString(), "a", "A", "ab", "aB", "abc", "a_", "a[", "a`", "a{", "Z", "z0", "0", "P00010",
        "p00009", "螺栓", "螺栓A", "a螺", "a螺栓", "xä", "xÄ", "xé", "xf", "xE",
        // KELVIN SIGN and LONG S fold to ASCII letters; a pair of surrogates after ASCII.
        QString(QChar(0x212A)), "k", "l", "x" + QString(QChar(0x017F)), "xs", "xt",
        QStringLiteral("a𝔸"), QStringLiteral("a𝔹"), QStringLiteral("A𝔸b")};
    for (const QString& a : names)
        for (const QString& b : names)
            EXPECT_EQ(VorDPMNames::Less(a, b), QtOrder(a, b))
                << a.toStdString() << " / " << b.toStdString();
}
