// One row of the report control: its cells ("items") in column order, each a text or a number
// (the picture cell) with an optional 64-bit item data value.
#pragma once

#include <QString>
#include <QtGlobal>
#include <vector>

class CVorDPMReportRecord {
public:
    struct Item {
        enum Kind { Text, Number };
        Kind kind = Text;
        QString text;      // the caption of a text item
        int number = 0;    // the icon index of a number (picture) item
        quint64 data = 0;  // item data; the first item's data is the row's key
    };

    Item& AddTextItem(const QString& text, quint64 data = 0) {
        m_items.push_back(Item{Item::Text, text, 0, data});
        return m_items.back();
    }
    Item& AddNumberItem(int number, quint64 data = 0) {
        m_items.push_back(Item{Item::Number, QString(), number, data});
        return m_items.back();
    }
    // The item of a column, or null when the record has no such item.
    const Item* GetItem(int column) const {
        if (column < 0 || column >= GetItemCount()) return nullptr;
        return &m_items[static_cast<size_t>(column)];
    }
    int GetItemCount() const { return static_cast<int>(m_items.size()); }
    // Changes the caption of a text item; false when the column holds no text item.
    bool SetItemText(int column, const QString& text) {
        if (column < 0 || column >= GetItemCount()) return false;
        Item& item = m_items[static_cast<size_t>(column)];
        if (item.kind != Item::Text) return false;
        item.text = text;
        return true;
    }

private:
    std::vector<Item> m_items;
};
