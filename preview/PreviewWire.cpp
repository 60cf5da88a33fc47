#include "PreviewWire.h"

#include <QBuffer>
#include <QDataStream>
#include <QtEndian>
#include <cerrno>

namespace {

// Opens every body, so that a child of another version is recognised instead of misread.
constexpr quint32 kRequestTag = 0x56505231;  // "VPR1"
constexpr quint32 kResultTag = 0x56505252;   // "VPRR"

// Both ends run on the same machine: in its byte order, texts and numbers are copied, not
// swapped.
void Configure(QDataStream& stream) {
    stream.setVersion(QDataStream::Qt_6_4);
    stream.setByteOrder(QSysInfo::ByteOrder == QSysInfo::LittleEndian ? QDataStream::LittleEndian
                                                                      : QDataStream::BigEndian);
}

// A frame: its header with the body's length, then the body that `write` puts out.
QByteArray Frame(const std::function<void(QDataStream&)>& write) {
    QByteArray frame(PreviewWire::kHeaderSize, '\0');
    {
        QBuffer buffer(&frame);
        buffer.open(QIODevice::ReadWrite);
        buffer.seek(PreviewWire::kHeaderSize);
        QDataStream out(&buffer);
        Configure(out);
        write(out);
    }
    qToLittleEndian(quint32(frame.size() - PreviewWire::kHeaderSize), frame.data());
    return frame;
}

// Reads a body with `read`; true when it held exactly what was read, after the right tag.
bool Unframe(const QByteArray& body, quint32 tag, const std::function<void(QDataStream&)>& read) {
    QDataStream in(body);
    Configure(in);
    quint32 found = 0;
    in >> found;
    if (found != tag) return false;
    read(in);
    return in.status() == QDataStream::Ok && in.atEnd();
}

void WriteValue(QDataStream& out, const PreviewValue& value) {
    out << quint8(value.index());
    std::visit([&out](const auto& v) { out << v; }, value);
}

PreviewValue ReadValue(QDataStream& in) {
    quint8 index = 0;
    in >> index;
    switch (index) {
        case 0: {
            qint64 integer = 0;
            in >> integer;
            return integer;
        }
        case 1: {
            double real = 0;
            in >> real;
            return real;
        }
        case 2: {
            QString text;
            in >> text;
            return text;
        }
    }
    in.setStatus(QDataStream::ReadCorruptData);
    return PreviewValue();
}

// The number of points each kind of primitive carries; the painter relies on it.
bool HasItsPoints(int kind, qsizetype points) {
    switch (kind) {
        case PreviewPrimitive::Line:
        case PreviewPrimitive::Rect:
            return points == 2;
        case PreviewPrimitive::Circle:
        case PreviewPrimitive::Arc:
        case PreviewPrimitive::Text:
            return points == 1;
        case PreviewPrimitive::Polyline:
            return points >= 2;
        case PreviewPrimitive::Polygon:
            return points >= 3;
    }
    return false;
}

void ReadPrimitives(QDataStream& in, PreviewDrawing& drawing) {
    quint32 count = 0;
    in >> count;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        quint8 kind = 0;
        QVector<QPointF> points;
        double radius = 0, start = 0, sweep = 0;
        QString text;
        in >> kind >> points >> radius >> start >> sweep >> text;
        if (!HasItsPoints(kind, points.size())) in.setStatus(QDataStream::ReadCorruptData);
        if (in.status() != QDataStream::Ok) return;
        drawing.Add({PreviewPrimitive::Kind(kind), std::move(points), radius, start, sweep,
                     std::move(text)});
    }
}

}  // namespace

QByteArray PreviewWire::Request(const QByteArray& script, const PreviewParameters& parameters) {
    return Frame([&](QDataStream& out) {
        out << kRequestTag << script << quint32(parameters.size());
        for (const auto& [name, value] : parameters) {
            out << name;
            WriteValue(out, value);
        }
    });
}

bool PreviewWire::ReadRequest(const QByteArray& body, QByteArray& script,
                              PreviewParameters& parameters) {
    return Unframe(body, kRequestTag, [&](QDataStream& in) {
        quint32 count = 0;
        in >> script >> count;
        for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
            QString name;
            in >> name;
            parameters[name] = ReadValue(in);
        }
    });
}

QByteArray PreviewWire::Result(const PreviewResult& result) {
    return Frame([&](QDataStream& out) {
        out << kResultTag << quint8(result.outcome) << result.detail
            << quint32(result.drawing.Primitives().size());
        for (const PreviewPrimitive& primitive : result.drawing.Primitives())
            out << quint8(primitive.kind) << primitive.points << primitive.radius
                << primitive.startAngle << primitive.sweepAngle << primitive.text;
    });
}

bool PreviewWire::ReadResult(const QByteArray& body, PreviewResult& result) {
    return Unframe(body, kResultTag, [&](QDataStream& in) {
        quint8 outcome = 0;
        in >> outcome >> result.detail;
        if (outcome > PreviewResult::SandboxFailure) in.setStatus(QDataStream::ReadCorruptData);
        result.outcome = PreviewResult::Outcome(outcome);
        ReadPrimitives(in, result.drawing);
    });
}

qsizetype PreviewWire::BodySize(const char* header) {
    const quint32 size = qFromLittleEndian<quint32>(header);
    return size <= quint32(kMaxFrameSize) ? qsizetype(size) : -1;
}

bool PreviewWire::Transfer(qsizetype size, const std::function<ssize_t(qsizetype done)>& step) {
    qsizetype done = 0;
    while (done < size) {
        const ssize_t moved = step(done);
        if (moved < 0 && errno == EINTR) continue;
        if (moved <= 0) return false;
        done += moved;
    }
    return true;
}
