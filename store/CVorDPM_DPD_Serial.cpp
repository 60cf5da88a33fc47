#include "CVorDPM_DPD_Serial.h"

#include <QHash>
#include <cstring>
#include <utility>

#include "CVorDPMTable.h"
#include "VorDPMFieldIO.h"

VORDPM_DEFINE_ROW(CVorDPM_DPD_Serial, "serial",
                  {{"key", "TEXT"},
                   {"product_id", "INTEGER"},
                   {"image_id", "INTEGER"},
                   {"shape_id", "INTEGER"},
                   {"vals", "TEXT"}})

namespace {

struct PackedEntry {
    int propertyId = 0;
    const char* value = nullptr;  // escaped value bytes
    qsizetype valueLength = 0;
    qsizetype begin = 0;  // offset of the line
    qsizetype end = 0;    // offset after the line (without its newline)
};

// Walks the packed lines; stops when `visit` returns true and reports that entry.
template <class Visitor>
bool FindEntry(const QByteArray& packed, Visitor&& visit, PackedEntry& found) {
    const char* data = packed.constData();
    const qsizetype size = packed.size();
    qsizetype pos = 0;
    while (pos < size) {
        const char* lineEnd = static_cast<const char*>(std::memchr(data + pos, '\n', size - pos));
        const qsizetype end = lineEnd ? lineEnd - data : size;
        PackedEntry entry;
        entry.begin = pos;
        entry.end = end;
        qsizetype cursor = pos;
        while (cursor < end && data[cursor] >= '0' && data[cursor] <= '9') {
            entry.propertyId = entry.propertyId * 10 + (data[cursor] - '0');
            ++cursor;
        }
        if (cursor < end && data[cursor] == '=') {
            entry.value = data + cursor + 1;
            entry.valueLength = end - cursor - 1;
            if (visit(entry)) {
                found = entry;
                return true;
            }
        }
        pos = end + 1;
    }
    return false;
}

QByteArray UnescapeBytes(const char* bytes, qsizetype length) {
    QByteArray plain;
    plain.reserve(length);
    for (qsizetype i = 0; i < length; ++i) {
        if (bytes[i] == '\\' && i + 1 < length) {
            ++i;
            plain.append(bytes[i] == 'n' ? '\n' : bytes[i]);
            continue;
        }
        plain.append(bytes[i]);
    }
    return plain;
}

// The entry's value bytes; without escapes a view of the packed bytes.
QByteArray ValueBytes(const PackedEntry& entry) {
    if (std::memchr(entry.value, '\\', size_t(entry.valueLength)))
        return UnescapeBytes(entry.value, entry.valueLength);
    return QByteArray::fromRawData(entry.value, entry.valueLength);
}

// The value bytes of the property's line.
QByteArray Utf8ValueIn(const QByteArray& packed, int propertyObjectId) {
    PackedEntry entry;
    if (!FindEntry(
            packed, [&](const PackedEntry& e) { return e.propertyId == propertyObjectId; }, entry))
        return {};
    return ValueBytes(entry);
}

QByteArray Escape(const QString& value) {
    QByteArray bytes = value.toUtf8();
    bytes.replace("\\", "\\\\");
    bytes.replace("\n", "\\n");
    return bytes;
}

}  // namespace

void CVorDPM_DPD_Serial::SetKey(const QString& key) {
    if (m_Key == key) return;
    const QString old = std::exchange(m_Key, key);
    MarkChanged();
    if (GetTable()) GetTable()->KeyChanged(this, old);
}

QString CVorDPM_DPD_Serial::GetValue(int propertyObjectId) const {
    return ValueIn(m_values, propertyObjectId);
}

QString CVorDPM_DPD_Serial::ValueIn(const QByteArray& packed, int propertyObjectId) {
    return QString::fromUtf8(Utf8ValueIn(packed, propertyObjectId));
}

QByteArray CVorDPM_DPD_Serial::GetValueUtf8(int propertyObjectId) const {
    return Utf8ValueIn(m_values, propertyObjectId);
}

QStringList CVorDPM_DPD_Serial::GetValues(const std::vector<int>& propertyObjectIds) const {
    QStringList values;
    values.reserve(static_cast<qsizetype>(propertyObjectIds.size()));
    for (const QByteArray& value : GetValuesUtf8(propertyObjectIds))
        values.append(QString::fromUtf8(value));
    return values;
}

std::vector<QByteArray> CVorDPM_DPD_Serial::GetValuesUtf8(
    const std::vector<int>& propertyObjectIds) const {
    std::vector<QByteArray> values(propertyObjectIds.size());
    // A property listed in the row twice keeps its first value, as GetValue reads it.
    std::vector<bool> filled(propertyObjectIds.size(), false);
    const size_t count = propertyObjectIds.size();
    // Rows mostly hold their values in the order of the properties asked for: the entry after
    // the last one found is tried first, which makes reading a whole row linear.
    size_t next = 0;
    const auto take = [&](size_t i, const PackedEntry& e) {
        if (filled[i]) return;
        values[i] = ValueBytes(e);
        filled[i] = true;
    };
    PackedEntry unused;
    FindEntry(
        m_values,
        [&](const PackedEntry& e) {
            if (next < count && propertyObjectIds[next] == e.propertyId) {
                take(next++, e);
                return false;
            }
            for (size_t i = 0; i < count; ++i)
                if (propertyObjectIds[i] == e.propertyId) take(i, e);
            return false;
        },
        unused);
    // A property asked for twice: the quick path above filled only one of its places.
    for (size_t i = 0; i < count; ++i) {
        if (filled[i]) continue;
        for (size_t j = 0; j < i; ++j) {
            if (!filled[j] || propertyObjectIds[j] != propertyObjectIds[i]) continue;
            values[i] = values[j];
            break;
        }
    }
    return values;
}

void CVorDPM_DPD_Serial::SetValue(const QString& value, int propertyObjectId) {
    if (GetValue(propertyObjectId) == value) return;
    PackedEntry entry;
    if (FindEntry(
            m_values, [&](const PackedEntry& e) { return e.propertyId == propertyObjectId; },
            entry)) {
        // Drop the old line together with one adjoining newline.
        const qsizetype begin = entry.begin > 0 ? entry.begin - 1 : entry.begin;
        const qsizetype end =
            entry.begin > 0 || entry.end >= m_values.size() ? entry.end : entry.end + 1;
        m_values.remove(begin, end - begin);
    }
    if (!value.isEmpty()) {
        if (!m_values.isEmpty()) m_values.append('\n');
        m_values.append(QByteArray::number(propertyObjectId)).append('=').append(Escape(value));
    }
    MarkChanged();
}

void CVorDPM_DPD_Serial::SetValues(const std::vector<int>& propertyObjectIds,
                                   const QStringList& values) {
    QHash<int, QByteArray> wanted;
    wanted.reserve(qsizetype(propertyObjectIds.size()));
    for (size_t i = 0; i < propertyObjectIds.size() && qsizetype(i) < values.size(); ++i)
        wanted.insert(propertyObjectIds[i], Escape(values[qsizetype(i)]));
    QByteArray packed;
    packed.reserve(m_values.size() + 16 * qsizetype(wanted.size()));
    const auto append = [&packed](int id, const char* value, qsizetype length) {
        if (length == 0) return;
        if (!packed.isEmpty()) packed.append('\n');
        packed.append(QByteArray::number(id)).append('=').append(value, length);
    };
    PackedEntry unused;
    FindEntry(
        m_values,
        [&](const PackedEntry& e) {
            const auto replaced = wanted.find(e.propertyId);
            if (replaced == wanted.end()) {
                append(e.propertyId, e.value, e.valueLength);
                return false;
            }
            append(e.propertyId, replaced->constData(), replaced->size());
            wanted.erase(replaced);
            return false;
        },
        unused);
    for (int id : propertyObjectIds) {
        const auto added = wanted.find(id);
        if (added == wanted.end()) continue;
        append(id, added->constData(), added->size());
        wanted.erase(added);
    }
    if (packed == m_values) return;
    m_values = packed;
    MarkChanged();
}
