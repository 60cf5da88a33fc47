// Writes a family table row by row, each cell as UTF-8 text.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

class FamilyTableWriter {
public:
    virtual ~FamilyTableWriter() = default;

    // False when writing failed; Error() says why.
    virtual bool WriteRow(const std::vector<QByteArray>& cells) = 0;
    // Completes the table; false when it could not be completed.
    virtual bool Finish() = 0;
    const QString& Error() const { return m_error; }

protected:
    bool Fail(const QString& error) {
        m_error = error;
        return false;
    }

private:
    QString m_error;
};
