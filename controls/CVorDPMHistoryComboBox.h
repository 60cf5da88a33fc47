// An editable combo box that offers the texts entered before, most recent first, and keeps
// them in the editor's settings between runs.
#pragma once

#include <QComboBox>
#include <QString>

class CVorDPMHistoryComboBox : public QComboBox {
    Q_OBJECT

public:
    // Entries are kept under the settings group `section`, as `keyPrefix`0, `keyPrefix`1, ...
    CVorDPMHistoryComboBox(const QString& section, const QString& keyPrefix,
                           QWidget* parent = nullptr);

    // Reads the kept entries into the list; the edit field stays empty.
    void LoadHistory();
    // Puts the current text first in the history (once, at most kMaxEntries kept) and writes
    // the history; an empty text changes nothing.
    void SaveHistory();

    static constexpr int kMaxEntries = 10;

private:
    QString m_section;
    QString m_keyPrefix;
};
