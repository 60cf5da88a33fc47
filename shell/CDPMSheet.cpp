#include "CDPMSheet.h"

CDPMSheet::CDPMSheet(QWidget* parent) : QTabWidget(parent) {}

void CDPMSheet::AddPage(CVorDPMPropertPageBase* page) {
    if (!page) return;
    m_pages.push_back(page);
    addTab(page, page->GetCaption());
}

int CDPMSheet::Create(QWidget* owner, const QRect& rect) {
    setParent(owner);
    setGeometry(rect);
    show();
    for (int i = 0; i < GetPageCount(); ++i) {
        setCurrentIndex(i);
        m_pages[i]->InitialiseOnce();
    }
    if (!m_pages.empty()) setCurrentIndex(0);
    return 1;
}

CVorDPMPropertPageBase* CDPMSheet::GetPage(int index) const {
    if (index < 0 || index >= GetPageCount()) return nullptr;
    return m_pages[index];
}

CVorDPMPropertPageBase* CDPMSheet::GetActivePage() const {
    return GetPage(currentIndex());
}

void CDPMSheet::UpdateCommandUi() {
    for (CVorDPMPropertPageBase* page : m_pages) page->UpdateCommandUi();
}
