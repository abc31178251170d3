#include "FuzzChecks.h"

#include "services/ImportBytes.h"
#include "services/ImportService.h"
#include "services/QifParser.h"
#include "services/ZipArchiveReader.h"

#include <QSet>
#include <QStringDecoder>

namespace FuzzChecks {

QString decodeImportBytes(const QByteArray &bytes)
{
    const QString text = ::decodeImportBytes(bytes);
    const bool marked =
        bytes.startsWith("\xEF\xBB\xBF") || bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
    if (marked)
        return {};
    if (isStrictUtf8(bytes)) {
        // Well-formed UTF-8 comes through unchanged, and Qt's own decoder agrees that it is.
        if (text.toUtf8() != bytes)
            return QStringLiteral("UTF-8 did not round-trip");
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        (void)decoder.decode(bytes);
        if (decoder.hasError())
            return QStringLiteral("accepted what Qt's UTF-8 decoder refuses");
        return {};
    }
    // One character a byte.
    if (text.size() != bytes.size())
        return QStringLiteral("Windows-1252 text of another length");
    return {};
}

QString qifParser(const QByteArray &bytes)
{
    const QString text = ::decodeImportBytes(bytes);
    const QifParseResult r = QifParser::parse(text, QifDateOrder::Auto);
    if (r.dateOrder == QifDateOrder::Auto)
        return QStringLiteral("date order left at Auto");
    if (r.skippedRecords < 0 || r.metadataRecords < 0)
        return QStringLiteral("negative count");
    QSet<QString> names;
    for (const QifAccountRef &account : r.accounts) {
        if (account.name.isEmpty() || names.contains(account.name.toLower()))
            return QStringLiteral("account listed twice or without a name");
        names.insert(account.name.toLower());
    }
    for (const QifTransaction &t : r.transactions) {
        // Every kept record has a date that can be stored.
        if (!t.date.isValid() || t.date.year() < 1 || t.date.year() > 9999)
            return QStringLiteral("kept record without a storable date");
        if (!t.sourceAccount.isEmpty() && !names.contains(t.sourceAccount.toLower()))
            return QStringLiteral("record under an account that is not listed");
    }
    for (const QifCategory &category : r.categories) {
        if (category.name.isEmpty())
            return QStringLiteral("category without a name");
    }
    // A given order parses the same text without trouble too.
    (void)QifParser::parse(text, r.dateOrder == QifDateOrder::DayFirst ? QifDateOrder::MonthFirst
                                                                       : QifDateOrder::DayFirst);
    return {};
}

QString parseCsv(const QByteArray &bytes)
{
    const QList<QStringList> rows = ImportService::parseCsv(::decodeImportBytes(bytes));
    for (const QStringList &row : rows) {
        if (row.isEmpty() || (row.size() == 1 && row.first().isEmpty()))
            return QStringLiteral("blank row kept");
        for (const QString &field : row) {
            if (field != field.trimmed())
                return QStringLiteral("field not trimmed");
        }
    }
    return {};
}

QString zipReader(const QByteArray &bytes)
{
    // Small limits, so that the refusals are reached by inputs a fuzzer can make.
    ZipArchiveReader::Limits limits;
    limits.maxEntries = 64;
    limits.maxEntrySize = 64 * 1024;
    limits.maxTotalSize = 256 * 1024;
    ZipArchiveReader reader(bytes, limits);
    if (!reader.open()) {
        if (reader.errorString().isEmpty())
            return QStringLiteral("refused without a reason");
        return {};
    }
    if (reader.count() > limits.maxEntries)
        return QStringLiteral("more entries than the limit");
    qint64 total = 0;
    for (int i = 0; i < reader.count(); ++i) {
        // An entry is found by its name, at its own place or an earlier one of the same name.
        const int found = reader.indexOf(reader.name(i));
        if (found < 0 || found > i)
            return QStringLiteral("entry not found by its own name");
        const QByteArray data = reader.read(i);
        if (data.size() > limits.maxEntrySize)
            return QStringLiteral("entry larger than the limit");
        total += data.size();
    }
    if (total > limits.maxTotalSize)
        return QStringLiteral("archive larger than the limit");
    return {};
}

} // namespace FuzzChecks
