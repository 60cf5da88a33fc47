// Writes the family table of a product definition: one row per series row in table order; the
// columns are the product name that the naming rule makes, the product, the shape and the
// picture (by name), then one column per property with a property id other than -1, headed by
// its parameter name and its unit ("D [mm]"). Values are written exactly as stored.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include "FamilyProblem.h"

class FamilyDefinition;
class FamilyProgress;
class FamilyTableWriter;
class QIODevice;

class FamilyExport {
    Q_DECLARE_TR_FUNCTIONS(FamilyExport)

public:
    enum Format { Csv, Xlsx };

    // A name ending in ".xlsx" asks for a workbook, any other for CSV.
    static Format FormatOf(const QString& path);
    static QStringList Headings(const FamilyDefinition& definition);

    // Writes the file; it takes the place of an earlier file of that name only when complete.
    static bool Write(const FamilyDefinition& definition, const QString& path, Format format,
                      FamilyProblem& problem, FamilyProgress& progress);
    // Writes CSV to an open device (standard output).
    static bool WriteCsv(const FamilyDefinition& definition, QIODevice& device,
                         FamilyProblem& problem, FamilyProgress& progress);

private:
    static bool WriteRows(const FamilyDefinition& definition, FamilyTableWriter& writer,
                          FamilyProblem& problem, FamilyProgress& progress);
};
