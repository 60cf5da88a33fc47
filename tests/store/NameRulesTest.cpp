#include <QDir>
#include <QDirIterator>
#include <functional>

#include "VorDPMNames.h"
#include "support/StoreTestBase.h"

namespace {

const QStringList kBadNames = {
    QString(), ".", "..", "a/b", "..\\up", "../up", "a:b", "a*", "wh?", "say\"x\"", "<x>", "a|b",
    "tab\there", "nl\nx", "trailing.", "trailing ", "CON", "lpt1.txt",
    // Names that would be written but could not be found again.
    ".hidden", ".recycle", QString(QChar(0xD800)) + "x", QString("x") + QChar(0xDC00),
    QString("ab") + QChar(0xDBFF),
    // One byte over the limit, in ASCII and in Chinese (3 bytes a character).
    QString(207, QLatin1Char('n')), QString(69, QChar(0x87BA))};

// The longest name: its longest derived file name, a new file's temporary copy with room for a
// journal ("<name>.DPD.new-<32 hex digits>-journal"), is as long as a file name can be.
const QString kLongest = QStringLiteral("ab") + QString(68, QChar(0x87BA));

QStringList FilesUnder(const QString& root) {
    QStringList files;
    QDirIterator it(root, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) files.append(it.next());
    files.sort();
    return files;
}

}  // namespace

TEST(NameRules, AcceptsOrdinaryAndChineseNames) {
    for (const QString& name :
         {QStringLiteral("螺栓"), QStringLiteral("GB 5782-2000"), QStringLiteral("a.b"),
          QStringLiteral("[x]"), QStringLiteral("COM10"), QStringLiteral("a.hidden"),
          QStringLiteral("𝔸 pair")})
        EXPECT_TRUE(VorDPMNames::IsValidName(name)) << name.toStdString();
}

class BadNameTest : public StoreTestBase {};

// Every operation that makes a file or folder from a name refuses names that are not portable
// file names, and writes nothing.
TEST_F(BadNameTest, EveryCreateCopyRenameRefusesAndWritesNothing) {
    CVorDPMLibraryManager* library = MakeLibrary();
    CVorDPMDPC* catalog = nullptr;
    ASSERT_EQ(library->CreateDPC(QStringLiteral("目录"), catalog), VOR::eOk);
    MakeDefinition(library, QStringLiteral("Bolt"));
    CVorDPMDPT* pattern = nullptr;
    ASSERT_EQ(Manager()->GetTemplateManager()->CreateDPT(QStringLiteral("T"), pattern), VOR::eOk);
    const QStringList before = FilesUnder(root.Path());

    using Operation = std::function<int(const QString&)>;
    const std::vector<std::pair<const char*, Operation>> operations = {
        {"CreateLibrary",
         [&](const QString& n) {
             CVorDPMLibraryManager* l = nullptr;
             return int(Manager()->CreateLibrary(n, l));
         }},
        {"CopyLibrary",
         [&](const QString& n) {
             return int(Manager()->CopyLibrary(QStringLiteral("QXMaterial"), n));
         }},
        {"RenameLibrary",
         [&](const QString& n) {
             return int(Manager()->RenameLibrary(QStringLiteral("QXMaterial"), n));
         }},
        {"CreateDPC",
         [&](const QString& n) {
             CVorDPMDPC* c = nullptr;
             return int(library->CreateDPC(n, c));
         }},
        {"CopyDPC",
         [&](const QString& n) { return int(library->CopyDPC(QStringLiteral("目录"), n)); }},
        {"RenameDPC",
         [&](const QString& n) { return int(library->RenameDPC(QStringLiteral("目录"), n)); }},
        {"CreateDPD",
         [&](const QString& n) {
             CVorDPMDPD* d = nullptr;
             return int(library->CreateDPD(n, d));
         }},
        {"CreateDPD from template",
         [&](const QString& n) {
             CVorDPMDPD* d = nullptr;
             return int(library->CreateDPD(n, pattern, d));
         }},
        {"CopyDPD",
         [&](const QString& n) { return int(library->CopyDPD(QStringLiteral("Bolt"), n)); }},
        {"RenameDPD",
         [&](const QString& n) { return int(library->RenameDPD(QStringLiteral("Bolt"), n)); }},
        {"CopyDPDAsDPT",
         [&](const QString& n) {
             return int(library->CopyDPDAsDPT(QStringLiteral("Bolt"), n, QString()));
         }},
        {"CreateDPT",
         [&](const QString& n) {
             CVorDPMDPT* t = nullptr;
             return int(Manager()->GetTemplateManager()->CreateDPT(n, t));
         }},
        {"RenameDPT",
         [&](const QString& n) {
             return int(Manager()->GetTemplateManager()->RenameDPT(QStringLiteral("T"), n));
         }},
        {"CopyDPT",
         [&](const QString& n) {
             return int(Manager()->GetTemplateManager()->CopyDPT(QStringLiteral("T"), n));
         }},
    };
    for (const auto& [label, operation] : operations)
        for (const QString& name : kBadNames)
            EXPECT_NE(operation(name), VOR::eOk)
                << label << " accepted \"" << name.toStdString() << '"';
    EXPECT_EQ(FilesUnder(root.Path()), before);
    EXPECT_EQ(FilesUnder(root.Home() + QStringLiteral("/data")), QStringList());
    for (const QString& name : kBadNames) {
        CVorDPMDPC* c = nullptr;
        EXPECT_EQ(library->CreateDPC(name, c), VOR::eInvalidName) << name.toStdString();
    }
    CVorDPMDPC* c = nullptr;
    library->CreateDPC(kBadNames.last(), c);
    EXPECT_EQ(
        CVorDPMManager::GetLastErrorText(),
        QStringLiteral("\"%1\"太长: 名称最多可有 206 个字节(UTF-8 编码)").arg(kBadNames.last()));
}

TEST_F(BadNameTest, TheLongestNameCanBeSavedAndCopied) {
    CVorDPMLibraryManager* library = MakeLibrary(kLongest);
    ASSERT_NE(library, nullptr);
    CVorDPMDPD* dpd = MakeDefinition(library, QStringLiteral("Bolt"));
    ASSERT_EQ(library->RenameDPD(QStringLiteral("Bolt"), kLongest), VOR::eOk);
    AddProperty(dpd, QStringLiteral("d"));
    EXPECT_EQ(Manager()->SaveWork(), 1) << CVorDPMManager::GetLastErrorText().toStdString();
    const QString other = QStringLiteral("cd") + kLongest.mid(2);
    EXPECT_EQ(library->CopyDPD(kLongest, other), VOR::eOk);
    EXPECT_EQ(Manager()->CopyLibrary(kLongest, other), VOR::eOk);
}
