// Tab order: in every dialog Tab visits the enabled controls as they are laid out, top to bottom
// and left to right, a list's buttons right after the list, a column beside a wider gap before
// what lies right of it, and from the last control comes back to the first.
#include <QAbstractButton>
#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>

#include "catalog/CVorDPMAddProductDlg.h"
#include "catalog/CVorDPMNewContentDlg.h"
#include "common/CVorDPMSetLibRoot.h"
#include "product/CDPMDataPage.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "product/CVorDPMNewProductDlg.h"
#include "product/ProductTestBase.h"
#include "script/CVorDPMScriptEdit.h"
#include "shell/CVorDPMEditorDlg.h"
#include "template/CVorDPMNewTemplateDlg.h"
#include "template/CVorDPMSaveAsTemplateDlg.h"

namespace {

// The name a test finds a control by: its own, else that of the nearest named widget around it.
QString NameOf(const QWidget* widget) {
    for (; widget; widget = widget->parentWidget())
        if (!widget->objectName().isEmpty()) return widget->objectName();
    return QString();
}

// Tab, or Ctrl+Tab out of a text field that takes Tab as text.
void PressTab(QWidget* focus) {
    auto* text = qobject_cast<QPlainTextEdit*>(focus);
    QTest::keyClick(focus, Qt::Key_Tab,
                    text && !text->tabChangesFocus() ? Qt::ControlModifier : Qt::NoModifier);
}

struct TabOrderCase {
    const char* name;
    std::function<std::unique_ptr<QWidget>(CVorDPMDPD* dpd)> open;
    QStringList order;
    // The button Enter presses, which the new order must not change; null: not checked.
    const char* enter = nullptr;
};

QString DefaultButton(const QWidget* window) {
    for (const QPushButton* button : window->findChildren<QPushButton*>())
        if (button->isDefault()) return NameOf(button);
    return QString();
}

struct TabOrderTest : ProductTestBase {};

TEST_F(TabOrderTest, TabFollowsTheLayoutInEveryDialog) {
    const QString tabs = QStringLiteral("qt_tabwidget_tabbar");
    const std::vector<TabOrderCase> cases{
        // Two columns of lists, each list's buttons after it (those without a row selected are
        // disabled), the series table's own buttons, then the dialog's.
        {"create product",
         [](CVorDPMDPD* dpd) {
             return std::make_unique<CVorDPMCreateProductDlg>(dpd, nullptr, nullptr, nullptr);
         },
         {"8057", "8037", "8035", "8041", "8058", "8045", "8034", "8049", "8036", "8053",
          "importTable", "exportTable", "8031", "1001", "8032", "8033"}},
        {"record editor",
         [](CVorDPMDPD* dpd) {
             auto* product = VorDPMDefinitionTables::LiveRows<CVorDPM_DPD_Product>(dpd).front();
             return std::make_unique<CVorDPMProductEdit>(
                 dpd, product, CVorDPMProductEdit::EditRecord, nullptr, nullptr, nullptr);
         },
         {"8059", "1", "2"},
         "1"},
        {"new product",
         [](CVorDPMDPD*) {
             return std::make_unique<CVorDPMNewProductDlg>(QStringLiteral("紧固件"), QString(),
                                                           nullptr, nullptr, nullptr);
         },
         {"8038", "8010", "8030", "2"},
         "8030"},
        {"new catalog",
         [](CVorDPMDPD*) { return std::make_unique<CVorDPMNewContentDlg>(); },
         {"8075", "8002", "1", "2"},
         "1"},
        // The classification fields lie below OK and Cancel.
        {"add products",
         [](CVorDPMDPD*) {
             return std::make_unique<CVorDPMAddProductDlg>(QStringLiteral("紧固件"), QString());
         },
         {"8028", "8027", "1", "2", "1004", "1005", "1006"},
         "1"},
        {"new template",
         [](CVorDPMDPD*) {
             return std::make_unique<CVorDPMNewTemplateDlg>(nullptr, nullptr, nullptr);
         },
         {"8038", "8010", "8030", "2"},
         "8030"},
        {"save as template",
         [](CVorDPMDPD*) { return std::make_unique<CVorDPMSaveAsTemplateDlg>(); },
         {"1002", "1003", "1", "2"},
         "1"},
        {"script editor",
         [](CVorDPMDPD* dpd) {
             return std::make_unique<CVorDPMScriptEdit>(dpd, nullptr, nullptr, nullptr, nullptr);
         },
         {"8084", "8031", "8035", "8071", "8037", "8002", "8003", "8082", "8085", "1", "2"},
         "1"},
        {"library root",
         [](CVorDPMDPD*) { return std::make_unique<CVorDPMSetLibRoot>(); },
         {"8002", "8003", "1", "2"},
         "1"},
        // The left column (search row, tree, check box) before the sheet beside it.
        {"editor",
         [](CVorDPMDPD*) { return std::make_unique<CVorDPMEditorDlg>(nullptr, nullptr, nullptr); },
         {"librarySearch", "librarySearchMode", "8000", "showAllLibraries", tabs, "8110",
          "checkLibrary"}},
        {"product data page",
         [](CVorDPMDPD*) {
             auto page = std::make_unique<CDPMDataPage>();
             page->resize(800, 600);
             // Its buttons wait for a definition; the order is the same either way.
             for (auto* button : page->findChildren<QAbstractButton*>()) button->setEnabled(true);
             return page;
         },
         {"8025", "8021", "8022", "8023", "8011", "newFromTable", "8096"}},
    };
    for (const TabOrderCase& test : cases) {
        std::unique_ptr<QWidget> window = test.open(m_dpd);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get())) << test.name;
        if (!test.order.isEmpty()) window->findChild<QWidget*>(test.order.front())->setFocus();
        const QWidget* start = QApplication::focusWidget();
        QStringList visited;
        do {
            visited.append(NameOf(QApplication::focusWidget()));
            PressTab(QApplication::focusWidget());
        } while (QApplication::focusWidget() != start && visited.size() < 80);
        EXPECT_EQ(visited, test.order) << test.name;
        if (test.enter) {
            EXPECT_EQ(DefaultButton(window.get()), test.enter) << test.name;
        }
    }
}

}  // namespace
