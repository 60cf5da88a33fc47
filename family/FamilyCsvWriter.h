// Writes RFC 4180 text: UTF-8 with a byte-order mark (so that spreadsheet programs read it as
// UTF-8), rows ended by CRLF, and a field quoted when it holds the delimiter, a quote or a line
// break, its quotes doubled.
#pragma once

#include <QChar>
#include <QCoreApplication>
#include <QStringList>

#include "FamilyTableWriter.h"

class QIODevice;

class FamilyCsvWriter : public FamilyTableWriter {
    Q_DECLARE_TR_FUNCTIONS(FamilyCsvWriter)

public:
    // Writes to an open device, which it does not own.
    explicit FamilyCsvWriter(QIODevice& device, char delimiter = ',');

    bool WriteRow(const std::vector<QByteArray>& cells) override;
    bool Finish() override;

    // One row as a line of text without its line end, for the clipboard.
    static QString Line(const QStringList& cells, QChar delimiter);

private:
    bool Flush();

    QIODevice& m_device;
    char m_delimiter;
    QByteArray m_buffer;
};
