// Base of the pages of the main dialog's sheet: told which tree node is selected through
// SetCurrentPath, initialised once when the sheet first activates it.
#pragma once

#include <QString>
#include <QWidget>

#include "CVorDPMAnchorResizer.h"

class CVorDPMPropertPageBase : public QWidget {
    Q_OBJECT

public:
    CVorDPMPropertPageBase(int templateId, const QString& caption, QWidget* parent = nullptr);

    int GetTemplateId() const { return m_templateId; }
    const QString& GetCaption() const { return m_caption; }
    // The selected node's path: a library name, or library "/" catalog. The base does nothing.
    virtual int SetCurrentPath(const QString& path);
    // Refreshes the enabled state of the page's commands.
    virtual void UpdateCommandUi() {}
    // Runs OnInitDialog the first time only; the sheet calls it when it activates the page.
    void InitialiseOnce();
    bool IsInitialised() const { return m_initialised; }

protected:
    virtual bool OnInitDialog() { return true; }
    void SetResize(QWidget* control, QPointF topLeft, QPointF bottomRight);
    void resizeEvent(QResizeEvent* event) override;

private:
    int m_templateId;
    QString m_caption;
    bool m_initialised = false;
    CVorDPMAnchorResizer m_resizer;
};
