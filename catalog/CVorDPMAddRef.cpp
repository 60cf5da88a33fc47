#include "CVorDPMAddRef.h"

#include "CVorDPMDPC.h"
#include "CVorDPMTreeCtrlEx.h"
#include "CVorDPMUiService.h"
#include "common/VorDPMControlId.h"
#include "query/CVorDPMData.h"

namespace {

// The template's size and places, in dialog units.
const QRect kDialogRect(0, 0, 200, 236);
const QRect kTreeRect(7, 7, 186, 200);
const QRect kOkRect(87, 214, 50, 14);
const QRect kCancelRect(143, 214, 50, 14);

}  // namespace

CVorDPMAddRef::CVorDPMAddRef(const QString& library, const QString& catalog, QWidget* parent)
    : CVorDPMDialogBase(IDD, parent),
      m_library(library),
      m_catalog(catalog),
      m_tree(new CVorDPMTreeCtrlEx(this)) {
    VorDPMControlId::Set(m_tree, IDC_TREE);
    const auto [ok, cancel] = VorDPMControlId::AddOkCancel(this);
    resize(MapDialogRect(kDialogRect).size());
    m_tree->setGeometry(MapDialogRect(kTreeRect));
    ok->setGeometry(MapDialogRect(kOkRect));
    cancel->setGeometry(MapDialogRect(kCancelRect));
    connect(ok, &QPushButton::clicked, this, &CVorDPMAddRef::OnOK);
}

bool CVorDPMAddRef::OnInitDialog() {
    CVorDPMDialogBase::OnInitDialog();
    m_tree->InitTreeCtrl();
    SetResize(m_tree, CVorDPMAnchorResizer::TopLeft, CVorDPMAnchorResizer::BottomRight);
    for (int id : {VorDPMControlId::IDOK, VorDPMControlId::IDCANCEL})
        SetResize(VorDPMControlId::Find<QWidget>(this, id), CVorDPMAnchorResizer::BottomRight,
                  CVorDPMAnchorResizer::BottomRight);
    AutoLoadPlacement(QStringLiteral("CVorDPMAddRef"));
    return true;
}

// A ticked library node only leads to its catalogs; each ticked catalog is one reference.
void CVorDPMAddRef::OnOK() {
    CVorDPMDPC* catalog = nullptr;
    CVorDPMData::GetDPCManger(m_library, m_catalog, catalog);
    std::vector<QTreeWidgetItem*> checked;
    m_tree->GetAllCheckedItem(checked);
    for (const QTreeWidgetItem* node : checked) {
        if (!node->parent()) continue;
        const QString library = node->parent()->text(0);
        const QString name = node->text(0);
        CVorDPM_DPC_Include* present = nullptr;
        if (catalog) catalog->GetInclude(library, name, present, 0);
        if (present) {
            CVorDPMUiService::Instance()->ShowMessage(
                this, tr("%1/%2添加失败，该外部目录已被包含！").arg(library, name));
            continue;
        }
        if (!catalog) continue;
        auto* include = new CVorDPM_DPC_Include;
        include->SetLibraryName(library);
        include->SetDPCName(name);
        catalog->AddInclude(include);
    }
    accept();
}
