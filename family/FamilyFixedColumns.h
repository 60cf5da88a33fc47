// The columns of an exported family table that are not properties: the product name that the
// naming rule makes (never written back), and the product, shape and picture of each row, by
// name. Their headings are recognised in Chinese and in English, whatever the editor speaks.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringView>

class FamilyFixedColumns {
    Q_DECLARE_TR_FUNCTIONS(FamilyFixedColumns)

public:
    enum Kind { Name, Product, Shape, Picture, Count, None = Count };

    // The heading the export writes, in the editor's language.
    static QString Heading(Kind kind);
    // The fixed column a heading names; None for any other heading.
    static Kind Recognise(QStringView heading);
};
