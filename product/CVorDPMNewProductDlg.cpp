#include "CVorDPMNewProductDlg.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "CVorDPMManager.h"
#include "CVorDPMUiService.h"
#include "catalog/CVorDPMContentAdder.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMHistoryComboBox.h"
#include "controls/CVorDPMTreeComboBox.h"
#include "product/CVorDPMCreateProductDlg.h"
#include "product/VorDPMProductNames.h"
#include "query/CVorDPMData.h"
#include "shell/VorDPMSaveWork.h"
#include "template/VorDPMTemplateTree.h"

namespace {
const QRect kDialogRect(0, 0, 234, 68);
}  // namespace

CVorDPMNewProductDlg::CVorDPMNewProductDlg(const QString& library, const QString& catalogPath,
                                           PreviewDrawCallback draw, PreviewCloseCallback close,
                                           PreviewMoveCallback move, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_library(library),
      m_catalogPath(catalogPath),
      m_template(new CVorDPMTreeComboBox(this)),
      m_name(new CVorDPMHistoryComboBox(QStringLiteral("HistorylibraryName"),
                                        QStringLiteral("HistoryItem"), this)),
      m_pPreviewDrawCallback(draw),
      m_pPreviewCloseCallback(close),
      m_pPreviewMoveCallback(move) {
    setWindowTitle(tr("添加产品"));
    VorDPMControlId::Set(m_template, IDC_TEMPLATE);
    VorDPMControlId::Set(m_name, IDC_PRODUCT_NAME);
    auto* nameLabel = new QLabel(tr("产品文件名"), this);
    VorDPMControlId::Set(nameLabel, IDC_NAME_LABEL);
    auto* fields = new QFormLayout;
    fields->addRow(tr("选择产品模板"), m_template);
    fields->addRow(nameLabel, m_name);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    const auto buttons = VorDPMControlId::AddButtonAndCancel(this, IDC_NEXT, tr("下一步"));
    layout->addLayout(VorDPMControlId::OkCancelRow(buttons));
    connect(buttons.first, &QPushButton::clicked, this, &CVorDPMNewProductDlg::OnNext);
    resize(MapDialogRect(kDialogRect).size());
    VorDPMTemplateTree::FillTemplates(*m_template->GetTreeCtrl());
    m_name->LoadHistory();
}

bool CVorDPMNewProductDlg::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    AutoLoadPlacement(QStringLiteral("CVorDPMNewProductDlg"));
    return true;
}

void CVorDPMNewProductDlg::OnNext() {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    const QString name = m_name->currentText();
    CVorDPMLibraryManager* library = nullptr;
    CVorDPMData::GetLibraryManger(m_library, library);
    const QString problem = VorDPMProductNames::Problem(library, name);
    if (!problem.isEmpty()) return ui->ShowMessage(this, problem);
    if (!library) return ui->ShowMessage(this, tr("产品库\"%1\"不存在。").arg(m_library));
    CVorDPMDPT* dpt = nullptr;
    if (!ChosenTemplate(dpt)) return ui->ShowMessage(this, tr("请选择正确的模板"));
    CVorDPMDPD* dpd = nullptr;
    const VOR::ErrorStatus created =
        dpt ? library->CreateDPD(name, dpt, dpd) : library->CreateDPD(name, dpd);
    if (created != VOR::eOk || !dpd)
        return ui->ShowMessage(this,
                               tr("创建产品失败: %1").arg(CVorDPMManager::GetLastErrorText()));
    m_name->SaveHistory();
    CVorDPMCreateProductDlg editor(dpd, m_pPreviewDrawCallback, m_pPreviewCloseCallback,
                                   m_pPreviewMoveCallback, this);
    if (ui->Exec(&editor) != QDialog::Accepted) {
        library->RemoveDPD(name);
        return reject();
    }
    m_created = dpd;
    EnterIntoCatalog(this, *library, m_catalogPath, name);
    accept();
}

bool CVorDPMNewProductDlg::ChosenTemplate(CVorDPMDPT*& dpt) {
    dpt = nullptr;
    if (m_template->text().isEmpty()) return true;
    dpt = VorDPMTemplateTree::LiveTemplateOf(m_template->GetSelectedItem());
    return dpt != nullptr;
}

// Under the classification of the node the product was added from; the catalog is saved at
// once, as the definition was.
void CVorDPMNewProductDlg::EnterIntoCatalog(QWidget* parent, CVorDPMLibraryManager& library,
                                            const QString& catalogPath, const QString& product) {
    if (catalogPath.isEmpty()) return;
    QString catalogName, level0, level1, level2;
    CVorDPMData::GetDPCType(catalogPath, catalogName, level0, level1, level2);
    CVorDPMDPC* catalog = nullptr;
    library.GetDPC(catalogName, catalog);
    if (!catalog) return;
    // The routine that enters included products into a catalog, so that both refuse a
    // product the catalog holds under the same classification.
    const CVorDPMContentAdder adder(catalog, level0, level1, level2);
    if (adder.Add(product) != CVorDPMContentAdder::Added) return;
    VorDPMSaveWork::SaveOrTell(parent);
}
