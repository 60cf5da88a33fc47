// The tab sheet of the main dialog: pages in the order added, every page initialised once at
// creation, the first page active.
#pragma once

#include <QTabWidget>
#include <vector>

#include "CVorDPMPropertPageBase.h"

class CDPMSheet : public QTabWidget {
    Q_OBJECT

public:
    explicit CDPMSheet(QWidget* parent = nullptr);

    // Adds a page before creation; tabs appear in the order of the calls.
    void AddPage(CVorDPMPropertPageBase* page);
    // Becomes a child of `owner` at `rect`, initialises each page in turn, then shows the first.
    // Returns 1 (the owner does not test it).
    int Create(QWidget* owner, const QRect& rect);
    int GetPageCount() const { return static_cast<int>(m_pages.size()); }
    CVorDPMPropertPageBase* GetPage(int index) const;
    CVorDPMPropertPageBase* GetActivePage() const;
    // Lets every page refresh the state of its commands.
    void UpdateCommandUi();

private:
    std::vector<CVorDPMPropertPageBase*> m_pages;
};
