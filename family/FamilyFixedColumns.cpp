#include "FamilyFixedColumns.h"

namespace {

struct Texts {
    const char* chinese;
    const char* english;
};

// By Kind.
const Texts kHeadings[] = {
    {QT_TRANSLATE_NOOP("FamilyFixedColumns", "产品名称"), "Product name"},
    {QT_TRANSLATE_NOOP("FamilyFixedColumns", "产品"), "Product"},
    {QT_TRANSLATE_NOOP("FamilyFixedColumns", "形体"), "Shape"},
    {QT_TRANSLATE_NOOP("FamilyFixedColumns", "图片"), "Picture"},
};

}  // namespace

QString FamilyFixedColumns::Heading(Kind kind) {
    return kind < Count ? tr(kHeadings[kind].chinese) : QString();
}

FamilyFixedColumns::Kind FamilyFixedColumns::Recognise(QStringView heading) {
    const QStringView text = heading.trimmed();
    for (int kind = Name; kind < Count; ++kind) {
        const Texts& texts = kHeadings[kind];
        if (text.compare(QString::fromUtf8(texts.chinese), Qt::CaseInsensitive) == 0 ||
            text.compare(QLatin1String(texts.english), Qt::CaseInsensitive) == 0 ||
            text.compare(tr(texts.chinese), Qt::CaseInsensitive) == 0)
            return Kind(kind);
    }
    return None;
}
