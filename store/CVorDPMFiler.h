// Sequential reader and writer of an object's fields; rows read and write themselves through it.
#pragma once

#include <QByteArray>
#include <QString>

#include "VorDPMExport.h"

class VORDPM_API CVorDPMFiler {
public:
    virtual ~CVorDPMFiler();

    virtual int ReadInt() = 0;
    virtual double ReadDouble() = 0;
    virtual QString ReadString() = 0;
    virtual QByteArray ReadBytes() = 0;

    virtual void WriteInt(int value) = 0;
    virtual void WriteDouble(double value) = 0;
    virtual void WriteString(const QString& value) = 0;
    virtual void WriteBytes(const QByteArray& value) = 0;
};
