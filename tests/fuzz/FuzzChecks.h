#pragma once

#include <QByteArray>
#include <QString>

// What must hold for any input to the import parsers and the backup archive reader, whatever the bytes: the
// fuzz targets stop on the first input that breaks it, and the regression test runs the inputs kept from
// earlier findings. Each gives an empty text when all holds, otherwise what did not.
namespace FuzzChecks {

QString decodeImportBytes(const QByteArray &bytes);
QString qifParser(const QByteArray &bytes);
QString parseCsv(const QByteArray &bytes);
QString zipReader(const QByteArray &bytes);

} // namespace FuzzChecks
