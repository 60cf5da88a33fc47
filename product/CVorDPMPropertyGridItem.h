// One row of the property grid: a caption and a value text of a given kind (text, Boolean,
// number, drop-down or file), optionally read-only, optionally with an in-place button.
#pragma once

#include <QString>
#include <QStringList>
#include <QTreeWidgetItem>

class CVorDPMPropertyGrid;

class CVorDPMPropertyGridItem : public QTreeWidgetItem {
public:
    enum Kind { Text, Bool, Number, Combo, File };
    // The grid's columns.
    enum Column { CaptionColumn = 0, ValueColumn = 1 };

    CVorDPMPropertyGridItem(Kind kind, const QString& caption, const QString& value = QString());

    Kind GetKind() const { return m_kind; }
    QString GetCaption() const { return text(CaptionColumn); }
    QString GetValue() const { return m_value; }
    // Shows a value without reporting it as a change.
    void SetValue(const QString& value);
    // Takes a value as the user's edit: shows it and, when it differs, reports it to the grid.
    void ChangeValue(const QString& value);

    void SetReadOnly(bool readOnly);
    bool IsReadOnly() const { return m_readOnly; }
    void SetHasButton(bool hasButton) { m_hasButton = hasButton; }
    bool HasButton() const { return m_hasButton; }
    // The entries of a drop-down (and of a Boolean) item's list.
    void SetOptions(const QStringList& options) { m_options = options; }
    const QStringList& GetOptions() const { return m_options; }
    // A remark shown after the value, for example why a chosen file was not taken; any value
    // change clears it.
    void SetNote(const QString& note);
    const QString& GetNote() const { return m_note; }

    // The in-place button was pressed; the base hands the press to the grid's owner.
    virtual void OnInplaceButtonDown();

    QVariant data(int column, int role) const override;

protected:
    CVorDPMPropertyGrid* Grid() const;

private:
    void Show();

    Kind m_kind;
    QString m_value;
    QString m_note;
    QStringList m_options;
    bool m_readOnly = false;
    bool m_hasButton = false;
};
