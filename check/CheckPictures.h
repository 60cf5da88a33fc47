// The pictures of one store file, decoded away from the thread that reads the store: decoding
// is most of what checking a definition costs, and it needs nothing of the store.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QVector>

#include "CheckFileReport.h"

class CheckPictures {
    Q_DECLARE_TR_FUNCTIONS(CheckPictures)

public:
    explicit CheckPictures(CheckPlace place) : m_place(std::move(place)) {}

    // A picture of a row; `what` names it in a finding ("图片"x"").
    void Add(const QString& table, int row, const QString& what, const QByteArray& bytes);
    bool IsEmpty() const { return m_pictures.isEmpty(); }
    // Decodes every picture; a finding for each that does not decode. Safe on any thread.
    QVector<CheckFinding> Decode() const;

private:
    struct Picture {
        QString table;
        int row;
        QString what;
        QByteArray bytes;
    };

    CheckPlace m_place;
    QVector<Picture> m_pictures;
};
