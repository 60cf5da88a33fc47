#include "CatalogFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

#include "CVorDPMDPC.h"
#include "CVorDPMLibraryManager.h"
#include "CVorDPM_Version.h"

const QString CatalogFixture::kLibrary = QStringLiteral("QXMaterial");
const QString CatalogFixture::kCatalog = QStringLiteral("标准件");

void CatalogFixture::SetUp() {
    CVorDPMLibraryManager* material = MakeLibrary(kLibrary);
    for (const char* name : {"螺栓", "螺母", "垫圈", "钢板", "扁钢"})
        MakeDefinition(material, QString::fromUtf8(name));
    CVorDPMDPD* bolt = nullptr;
    material->GetDPD(QStringLiteral("螺栓"), bolt);
    AddVersion(bolt, 1.1, QStringLiteral("螺栓定稿"));

    CVorDPMDPC* standard = MakeCatalog(material, kCatalog);
    MakeEntry(standard, QStringLiteral("螺栓"), QStringLiteral("紧固件"), QStringLiteral("螺栓类"),
              QStringLiteral("六角"))
        ->SetDescription(QStringLiteral("外六角"));
    MakeEntry(standard, QStringLiteral("螺母"), QStringLiteral("紧固件"), QStringLiteral("螺母类"));
    MakeEntry(standard, QStringLiteral("垫圈"), QStringLiteral("紧固件"));
    MakeEntry(standard, QStringLiteral("缺失"), QStringLiteral("紧固件"));
    MakeEntry(standard, QStringLiteral("钢板"));
    MakeEntry(standard, QStringLiteral("扁钢"), QStringLiteral("型材"), QStringLiteral("螺母类"));
    MakeCatalog(material, QStringLiteral("板材"));

    CVorDPMLibraryManager* mep = MakeLibrary(QStringLiteral("QXMEP"));
    AddVersion(MakeCatalog(mep, QStringLiteral("管道")), 1.5, QStringLiteral("初版"));
    MakeCatalog(mep, QStringLiteral("阀门"));

    AddReference(standard, QStringLiteral("QXMEP"), QStringLiteral("管道"));
    AddReference(standard, QStringLiteral("QXMEP"), QStringLiteral("阀门"));
    AddReference(standard, QStringLiteral("已删除库"), QStringLiteral("目录"));
    AddReference(standard, QStringLiteral("QXMEP"), QStringLiteral("保温"));
    SaveAndReopen();
}

void CatalogFixture::TearDown() {
    page.reset();
}

void CatalogFixture::AddVersion(CVorDPMDBBase* file, double number, const QString& description) {
    ASSERT_TRUE(file);
    auto* version = new CVorDPM_Version;
    version->SetVersion(number);
    version->SetDescription(description);
    ASSERT_EQ(file->AddVersion(version), VOR::eOk);
}

void CatalogFixture::AddReference(CVorDPMDPC* catalog, const QString& library,
                                  const QString& name) {
    auto* include = new CVorDPM_DPC_Include;
    include->SetLibraryName(library);
    include->SetDPCName(name);
    ASSERT_EQ(catalog->AddInclude(include), VOR::eOk);
}

CVorDPMDPC* CatalogFixture::Catalog(const QString& library, const QString& name) {
    CVorDPMLibraryManager* manager = Library(library);
    CVorDPMDPC* catalog = nullptr;
    if (manager) manager->GetDPC(name, catalog);
    return catalog;
}

QStringList CatalogFixture::Contents(const QString& library, const QString& name) {
    QStringList texts;
    CKZList<CVorDPM_DPC_Content*> contents;
    if (CVorDPMDPC* catalog = Catalog(library, name)) catalog->GetAllContent(contents, 0);
    for (const CVorDPM_DPC_Content* content : contents)
        texts << content->GetDPD() + QLatin1Char(':') + content->GetType0() + QLatin1Char('/') +
                     content->GetType1() + QLatin1Char('/') + content->GetType2();
    return texts;
}

QStringList CatalogFixture::References(const QString& library, const QString& name) {
    QStringList texts;
    CKZList<CVorDPM_DPC_Include*> includes;
    if (CVorDPMDPC* catalog = Catalog(library, name)) catalog->GetAllInclude(includes, 0);
    for (const CVorDPM_DPC_Include* include : includes)
        texts << include->GetLibraryName() + QLatin1Char('/') + include->GetDPCName();
    return texts;
}

CDPMContentPage& CatalogFixture::Page(const QString& path) {
    if (!page) {
        page = std::make_unique<CDPMContentPage>();
        page->resize(900, 640);
        page->show();
    }
    page->SetCurrentPath(path);
    return *page;
}

QTreeWidgetItem* CatalogFixture::Node(const QStringList& path) const {
    QTreeWidgetItem* node = page->GetTreeCtrl()->topLevelItem(0);
    for (const QString& text : path) {
        QTreeWidgetItem* next = nullptr;
        for (int i = 0; node && i < node->childCount() && !next; ++i)
            if (node->child(i)->text(0) == text) next = node->child(i);
        node = next;
    }
    return node;
}

void CatalogFixture::SelectNode(QTreeWidgetItem* node) {
    ASSERT_TRUE(node);
    ClickNode(page->GetTreeCtrl(), node);
    ASSERT_EQ(page->GetTreeCtrl()->currentItem(), node);
}

void CatalogFixture::SelectRows(CVorDPMReportCtrlBase* report, const std::vector<int>& rows) {
    for (int row : rows) {
        const QModelIndex index = report->model()->index(row, 1);
        report->scrollTo(index);
        QTest::mouseClick(report->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          report->visualRect(index).center());
    }
}

std::vector<int> CatalogFixture::Icons(const CVorDPMReportCtrlBase* report) {
    std::vector<int> icons;
    const CVorDPMReportModel* model = report->GetRecords();
    for (int row = 0; row < model->GetRecordCount(); ++row) {
        const CVorDPMReportRecord::Item* item = model->GetRecord(row)->GetItem(0);
        icons.push_back(item && item->kind == CVorDPMReportRecord::Item::Number ? item->number
                                                                                : -1);
    }
    return icons;
}

std::map<QString, bool> CatalogFixture::RunPopup(const std::function<void()>& open,
                                                 const QString& entry, bool byKeyboard) {
    std::map<QString, bool> entries;
    bool opened = false;
    QTimer::singleShot(0, page.get(), [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) return;
        opened = true;
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions()) {
            entries[action->text()] = action->isEnabled();
            if (action->text() == entry && action->isEnabled()) chosen = action;
        }
        if (!chosen) {
            menu->close();
            return;
        }
        if (!byKeyboard) {
            chosen->trigger();
            menu->close();
            return;
        }
        menu->setActiveAction(chosen);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    open();
    EXPECT_TRUE(opened) << "no menu opened";
    return entries;
}

std::map<QString, bool> CatalogFixture::RightClickNode(QTreeWidgetItem* node,
                                                       const QString& entry) {
    CVorDPMTreeCtrlEx* tree = page->GetTreeCtrl();
    const QPoint position = tree->visualItemRect(node).center();
    return RunPopup(
        [&] {
            QTest::mouseClick(tree->viewport(), Qt::RightButton, {}, position);
            // The click alone does not reach the context-menu handling offscreen.
            emit tree->customContextMenuRequested(position);
        },
        entry);
}

QLineEdit* CatalogFixture::LabelEditor() const {
    // An editor that was closed may still wait for its deletion, hidden.
    for (QLineEdit* edit : page->GetTreeCtrl()->viewport()->findChildren<QLineEdit*>())
        if (edit->isVisible()) return edit;
    return nullptr;
}

void CatalogFixture::FinishLabelEdit(const QString& text) {
    QLineEdit* edit = LabelEditor();
    ASSERT_TRUE(edit) << "no label is being edited";
    edit->selectAll();
    Type(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    // The editor commits and closes on a queued call.
    QCoreApplication::processEvents();
}
