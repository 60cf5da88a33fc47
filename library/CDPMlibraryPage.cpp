#include "CDPMlibraryPage.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <iterator>

#include "CVorDPMCommandManager.h"
#include "CVorDPMCommandScope.h"
#include "CVorDPMManager.h"
#include "CVorDPMReportCtrlBase.h"
#include "CVorDPMUiService.h"
#include "VorDPMSaveWork.h"
#include "common/VorDPMControlId.h"
#include "controls/CVorDPMPictureCtrl.h"
#include "library/CVorDPMLibraryCheckPanel.h"
#include "library/CVorDPMVersionDlg.h"
#include "query/CVorDPMData.h"

namespace {

// The record's texts, in the order of the report's rows; each row's key is its index + 1.
struct TextField {
    const char* label;
    const QString& (CVorDPM_DPI_Info::*get)() const;
    void (CVorDPM_DPI_Info::*set)(const QString&);
    bool multiLine = false;  // edited in a box of several lines
};
const TextField kTextFields[] = {
    {QT_TRANSLATE_NOOP("CDPMlibraryPage", "公司名称"), &CVorDPM_DPI_Info::GetCompanyName,
     &CVorDPM_DPI_Info::SetCompanyName},
    {QT_TRANSLATE_NOOP("CDPMlibraryPage", "描述"), &CVorDPM_DPI_Info::GetDescription,
     &CVorDPM_DPI_Info::SetDescription, true},
    {QT_TRANSLATE_NOOP("CDPMlibraryPage", "关键字"), &CVorDPM_DPI_Info::GetKeyword,
     &CVorDPM_DPI_Info::SetKeyword},
    {QT_TRANSLATE_NOOP("CDPMlibraryPage", "作者"), &CVorDPM_DPI_Info::GetAuthor,
     &CVorDPM_DPI_Info::SetAuthor},
};
constexpr int kTextFieldCount = static_cast<int>(std::size(kTextFields));

// The counts follow the texts; they are written on saving, not typed.
struct CountField {
    const char* label;
    const int& (CVorDPM_DPI_Info::*get)() const;
};
const CountField kCountFields[] = {
    {QT_TRANSLATE_NOOP("CDPMlibraryPage", "产品总数"), &CVorDPM_DPI_Info::GetProductCount},
    {QT_TRANSLATE_NOOP("CDPMlibraryPage", "本库产品数"), &CVorDPM_DPI_Info::GetLocalProductCount},
    {QT_TRANSLATE_NOOP("CDPMlibraryPage", "引用产品数"), &CVorDPM_DPI_Info::GetIncludeProductCount},
};

QString Label(const char* text) {
    return QCoreApplication::translate("CDPMlibraryPage", text);
}

}  // namespace

CDPMlibraryPage::CDPMlibraryPage(QWidget* parent)
    : CVorDPMPropertPageBase(IDD, tr("产品库"), parent),
      m_report(new CVorDPMReportCtrlBase(this)),
      m_picture(new CVorDPMPictureCtrl(this)),
      m_status(new QLabel(this)),
      m_editText(VorDPMControlId::AddButton(this, IDC_EDIT_TEXT, tr("修改"))),
      m_loadPicture(VorDPMControlId::AddButton(this, IDC_LOAD_PICTURE, tr("载入图片"))),
      m_save(VorDPMControlId::AddButton(this, IDC_SAVE, tr("保存"))),
      m_version(VorDPMControlId::AddButton(this, IDC_VERSION, tr("版本信息"))),
      m_checkPanel(new CVorDPMLibraryCheckPanel(this)) {
    VorDPMControlId::Set(m_report, IDC_INFO_REPORT);
    VorDPMControlId::Set(m_picture, IDC_PICTURE);
    VorDPMControlId::Set(m_status, IDC_STATUS);
    m_report->SetColumnHeads({tr("项目"), tr("内容")}, {100});
    m_status->setWordWrap(true);
    m_status->hide();

    auto* infoBox = new QGroupBox(tr("产品库信息"), this);
    (new QVBoxLayout(infoBox))->addWidget(m_report);
    auto* pictureBox = new QGroupBox(tr("产品库图片"), this);
    (new QVBoxLayout(pictureBox))->addWidget(m_picture);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {m_editText, m_loadPicture, m_save, m_version})
        buttons->addWidget(button);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_status);
    layout->addWidget(infoBox, 3);
    layout->addWidget(pictureBox, 2);
    layout->addLayout(buttons);
    layout->addWidget(m_checkPanel, 2);

    connect(m_editText, &QPushButton::clicked, this, &CDPMlibraryPage::OnEditText);
    connect(m_loadPicture, &QPushButton::clicked, this, &CDPMlibraryPage::OnLoadPicture);
    connect(m_save, &QPushButton::clicked, this, &CDPMlibraryPage::OnSave);
    connect(m_version, &QPushButton::clicked, this, &CDPMlibraryPage::OnVersion);
    connect(m_report, &CVorDPMReportCtrlBase::RecordDoubleClicked, this,
            &CDPMlibraryPage::OnEditText);
    connect(m_report, &CVorDPMReportCtrlBase::RecordSelectionChanged, this,
            &CDPMlibraryPage::UpdateCommandUi);
    UpdateCommandUi();
}

int CDPMlibraryPage::SetCurrentPath(const QString& path) {
    m_currentPath = path;
    m_library = path.section(QLatin1Char('/'), 0, 0);
    m_checkPanel->SetLibrary(m_library);
    Reload();
    return 1;
}

// Looked up by name each time: the store may have dropped the objects since (a new root).
CVorDPMLibraryManager* CDPMlibraryPage::Library() const {
    CVorDPMLibraryManager* library = nullptr;
    if (!m_library.isEmpty()) CVorDPMData::GetLibraryManger(m_library, library);
    return library;
}

CVorDPM_DPI_Info* CDPMlibraryPage::Info(QString* problem) const {
    CVorDPMLibraryManager* library = Library();
    if (!library) {
        if (problem && !m_library.isEmpty()) *problem = tr("产品库\"%1\"不存在。").arg(m_library);
        return nullptr;
    }
    CVorDPMDPI* file = library->GetDPI();
    CVorDPM_DPI_Info* info = nullptr;
    if (file) file->GetInfo(info);
    if (!info && problem)
        *problem = tr("无法读取产品库\"%1\"的信息文件: %2")
                       .arg(m_library, CVorDPMManager::GetLastErrorText());
    return info;
}

void CDPMlibraryPage::Reload() {
    QString problem;
    if (CVorDPM_DPI_Info* info = Info(&problem))
        ShowInfo(*info);
    else
        ShowProblem(problem);
    UpdateCommandUi();
}

void CDPMlibraryPage::ShowInfo(const CVorDPM_DPI_Info& info) {
    std::vector<std::vector<QString>> rows;
    for (const TextField& field : kTextFields)
        rows.push_back({QString::number(rows.size() + 1), Label(field.label), (info.*field.get)()});
    for (const CountField& field : kCountFields)
        rows.push_back({QString::number(rows.size() + 1), Label(field.label),
                        QString::number((info.*field.get)())});
    m_report->AddAllRecords(rows, true, false);
    m_picture->Clear();
    m_picture->LoadFromBuffer(info.GetImage());
    m_status->hide();
}

void CDPMlibraryPage::ShowProblem(const QString& problem) {
    m_report->AddAllRecords({}, true, false);
    m_picture->Clear();
    ShowStatus(problem);
}

void CDPMlibraryPage::ShowStatus(const QString& text) {
    m_status->setText(text);
    m_status->setVisible(!text.isEmpty());
}

// 0-based index into the texts, or -1 when no text row is selected.
int CDPMlibraryPage::SelectedTextField() const {
    const int key = static_cast<int>(m_report->GetSelectRecordData(m_report->GetSelRecord()));
    return key >= 1 && key <= kTextFieldCount ? key - 1 : -1;
}

void CDPMlibraryPage::UpdateCommandUi() {
    const bool hasInfo = Info() != nullptr;
    m_editText->setEnabled(hasInfo && SelectedTextField() >= 0);
    m_loadPicture->setEnabled(hasInfo);
    m_save->setEnabled(hasInfo);
    m_version->setEnabled(hasInfo);
}

void CDPMlibraryPage::Modify(const std::function<void(CVorDPM_DPI_Info&)>& change) {
    CVorDPM_DPI_Info* info = Info();
    if (!info) return;
    CVorDPMCommandScope command;
    CVorDPMCommandManager::GetInstance()->AddModifiedObject(info);
    change(*info);
    command.Commit();
}

void CDPMlibraryPage::OnEditText() {
    const int index = SelectedTextField();
    CVorDPM_DPI_Info* info = Info();
    if (index < 0 || !info) return;
    const TextField& field = kTextFields[index];
    QString text = (info->*field.get)();
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    const bool typed = field.multiLine
                           ? ui->InputLongText(this, Label(field.label), tr("请输入:"), text)
                           : ui->InputText(this, Label(field.label), tr("请输入:"), text);
    if (!typed) return;
    if (text == (info->*field.get)()) return;
    Modify([&](CVorDPM_DPI_Info& record) { (record.*field.set)(text); });
    Reload();
}

// The picture is checked before it reaches the record: a file that cannot be read or decoded
// leaves the record as it was.
void CDPMlibraryPage::OnLoadPicture() {
    CVorDPMUiService* ui = CVorDPMUiService::Instance();
    const QString path = ui->OpenFileName(
        this, tr("载入图片"), tr("图片文件 (*.bmp *.png *.jpg *.jpeg *.gif);;所有文件 (*)"));
    if (path.isEmpty()) return;
    CBinaryData picture;
    if (!picture.LoadFromFile(path))
        return ui->ShowMessage(this, tr("无法读取文件\"%1\"!").arg(path));
    if (QImage::fromData(picture.Bytes()).isNull())
        return ui->ShowMessage(this, tr("文件\"%1\"不是可以识别的图片!").arg(path));
    Modify([&](CVorDPM_DPI_Info& record) { record.SetImage(picture); });
    Reload();
}

void CDPMlibraryPage::OnSave() {
    CVorDPMLibraryManager* library = Library();
    if (!library) return;
    Modify([&](CVorDPM_DPI_Info&) { library->WriteProductCounts(); });
    Reload();
    const QString failure = VorDPMSaveWork::SaveOrTell(this);
    ShowStatus(failure.isEmpty() ? tr("已保存。") : failure);
}

void CDPMlibraryPage::OnVersion() {
    CVorDPMLibraryManager* library = Library();
    if (!library || !library->GetDPI()) return;
    CVorDPMVersionDlg dialog(library->GetDPI(), tr("产品库\"%1\"的版本信息").arg(m_library), this);
    CVorDPMUiService::Instance()->Exec(&dialog);
}
