#include "CVorDPMHistoryComboBox.h"

#include <QStringList>

#include "CVorDPMEditorSettings.h"

CVorDPMHistoryComboBox::CVorDPMHistoryComboBox(const QString& section, const QString& keyPrefix,
                                               QWidget* parent)
    : QComboBox(parent), m_section(section), m_keyPrefix(keyPrefix) {
    setEditable(true);
    // Entries are added by SaveHistory only, not by pressing Enter in the field.
    setInsertPolicy(QComboBox::NoInsert);
}

void CVorDPMHistoryComboBox::LoadHistory() {
    QSettings settings = CVorDPMEditorSettings::Open();
    settings.beginGroup(m_section);
    QStringList entries;
    for (int i = 0; i < kMaxEntries; ++i) {
        const QString entry = settings.value(m_keyPrefix + QString::number(i)).toString();
        if (entry.isEmpty()) break;
        entries.append(entry);
    }
    clear();
    addItems(entries);
    setEditText(QString());
}

void CVorDPMHistoryComboBox::SaveHistory() {
    const QString current = currentText();
    if (current.isEmpty()) return;
    QStringList entries{current};
    for (int i = 0; i < count() && entries.size() < kMaxEntries; ++i) {
        if (itemText(i) != current) entries.append(itemText(i));
    }
    QSettings settings = CVorDPMEditorSettings::Open();
    settings.beginGroup(m_section);
    for (int i = 0; i < kMaxEntries; ++i) {
        const QString key = m_keyPrefix + QString::number(i);
        if (i < entries.size())
            settings.setValue(key, entries[i]);
        else
            settings.remove(key);
    }
    clear();
    addItems(entries);
    setEditText(current);
}
