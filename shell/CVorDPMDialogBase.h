// Base of every modal dialog of the editor: resizable with anchored controls, window placement
// kept per dialog class, and a one-time initialisation before the dialog is first shown.
#pragma once

#include <QDialog>
#include <QString>

#include "CVorDPMAnchorResizer.h"

class CVorDPMDialogBase : public QDialog {
    Q_OBJECT

public:
    CVorDPMDialogBase(int templateId, QWidget* parent = nullptr);

    int GetTemplateId() const { return m_templateId; }
    // Converts a rectangle in dialog units (a quarter of the average character width, an eighth
    // of the character height) to pixels, so that layouts keep their proportions on any font.
    QRect MapDialogRect(const QRect& units) const;
    // The same on any widget's font, for panels that are not dialogs.
    static QRect MapDialogRect(const QWidget& widget, const QRect& units);
    // Refreshes the enabled state of the dialog's commands; dialogs with such rules override it.
    virtual void UpdateCommandUi() {}
    // Runs OnInitDialog before the first show. It must come before the window appears: changing
    // the window flags of a visible window hides it again.
    void setVisible(bool visible) override;

protected:
    // Runs once, right before the dialog is first shown. The base adds the size grip; the
    // frame (caption, system menu, minimise and maximise boxes) is set at construction, since
    // changing it here would hide the dialog again. Returns true.
    virtual bool OnInitDialog();
    void SetResize(QWidget* control, QPointF topLeft, QPointF bottomRight);
    // Restores the placement saved under `key` and saves it again when the dialog closes.
    void AutoLoadPlacement(const QString& key);

    void resizeEvent(QResizeEvent* event) override;
    void done(int result) override;

private:
    int m_templateId;
    bool m_initialised = false;
    QString m_placementKey;
    CVorDPMAnchorResizer m_resizer;
};
