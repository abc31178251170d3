#include "services/ZipArchiveReader.h"
#include "services/ZipArchiveWriter.h"

#include <QElapsedTimer>
#include <QTest>
#include <QtEndian>

#include <optional>
#include <zlib.h>

namespace {

QByteArray rawDeflate(const QByteArray &data)
{
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 9, Z_DEFAULT_STRATEGY);
    QByteArray out(int(deflateBound(&stream, uLong(data.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(data.constData()));
    stream.avail_in = uInt(data.size());
    stream.next_out = reinterpret_cast<Bytef *>(out.data());
    stream.avail_out = uInt(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(qsizetype(stream.total_out));
    deflateEnd(&stream);
    return out;
}

template <typename T>
void put(QByteArray &out, T value)
{
    char bytes[sizeof(T)];
    qToLittleEndian(value, bytes);
    out.append(bytes, sizeof(T));
}

// One entry of a hand-made archive, with the lies a crafted file may tell.
struct RawEntry {
    RawEntry(const QByteArray &name, const QByteArray &data, bool deflated = false)
        : name(name)
        , data(data)
        , deflated(deflated)
    {
    }
    QByteArray name;
    QByteArray data;
    bool deflated = false;
    std::optional<quint32> declaredSize;
    std::optional<quint32> declaredCrc;
    std::optional<quint32> localOffset; // in the directory; by default the entry's own local header
};

struct Layout {
    std::optional<quint64> declaredEntries;
    std::optional<quint32> directorySize;
    bool zip64 = false;
    // Extra directory records pointing at the first entry's local header.
    int sharedRecords = 0;
};

QByteArray buildZip(const QList<RawEntry> &entries, const Layout &layout = {})
{
    QByteArray archive;
    QByteArray directory;
    quint64 records = 0;
    // Crafted archives repeat one large entry; it is deflated and summed once.
    const char *cachedData = nullptr;
    QByteArray cachedStored;
    quint32 cachedCrc = 0;
    const auto prepare = [&](const RawEntry &e, QByteArray *stored, quint32 *crc) {
        if (e.data.isEmpty() || e.data.constData() != cachedData) {
            cachedData = e.data.isEmpty() ? nullptr : e.data.constData();
            cachedStored = e.deflated ? rawDeflate(e.data) : e.data;
            cachedCrc =
                quint32(crc32(0, reinterpret_cast<const Bytef *>(e.data.constData()), uInt(e.data.size())));
        }
        *stored = cachedStored;
        *crc = cachedCrc;
    };
    const auto record = [&](const RawEntry &e, const QByteArray &stored, quint32 crc, quint32 offset) {
        put<quint32>(directory, 0x02014b50);
        put<quint16>(directory, 20);
        put<quint16>(directory, 20);
        put<quint16>(directory, 0);
        put<quint16>(directory, e.deflated ? 8 : 0);
        put<quint32>(directory, 0);
        put<quint32>(directory, e.declaredCrc.value_or(crc));
        put<quint32>(directory, quint32(stored.size()));
        put<quint32>(directory, e.declaredSize.value_or(quint32(e.data.size())));
        put<quint16>(directory, quint16(e.name.size()));
        put<quint16>(directory, 0);
        put<quint16>(directory, 0);
        put<quint16>(directory, 0);
        put<quint16>(directory, 0);
        put<quint32>(directory, 0);
        put<quint32>(directory, offset);
        directory += e.name;
        ++records;
    };
    for (const RawEntry &e : entries) {
        QByteArray stored;
        quint32 crc = 0;
        prepare(e, &stored, &crc);
        const quint32 offset = quint32(archive.size());
        put<quint32>(archive, 0x04034b50);
        put<quint16>(archive, 20);
        put<quint16>(archive, 0);
        put<quint16>(archive, e.deflated ? 8 : 0);
        put<quint32>(archive, 0);
        put<quint32>(archive, crc);
        put<quint32>(archive, quint32(stored.size()));
        put<quint32>(archive, quint32(e.data.size()));
        put<quint16>(archive, quint16(e.name.size()));
        put<quint16>(archive, 0);
        archive += e.name;
        archive += stored;
        record(e, stored, crc, e.localOffset.value_or(offset));
    }
    if (!entries.isEmpty()) {
        const RawEntry &first = entries.first();
        QByteArray stored;
        quint32 crc = 0;
        prepare(first, &stored, &crc);
        for (int i = 0; i < layout.sharedRecords; ++i)
            record(first, stored, crc, 0);
    }
    const quint32 directoryOffset = quint32(archive.size());
    archive += directory;
    const quint64 count = layout.declaredEntries.value_or(records);
    const quint32 size = layout.directorySize.value_or(quint32(directory.size()));
    if (layout.zip64) {
        const quint64 recordOffset = quint64(archive.size());
        put<quint32>(archive, 0x06064b50);
        put<quint64>(archive, 44);
        put<quint16>(archive, 45);
        put<quint16>(archive, 45);
        put<quint32>(archive, 0);
        put<quint32>(archive, 0);
        put<quint64>(archive, count);
        put<quint64>(archive, count);
        put<quint64>(archive, size);
        put<quint64>(archive, directoryOffset);
        put<quint32>(archive, 0x07064b50);
        put<quint32>(archive, 0);
        put<quint64>(archive, recordOffset);
        put<quint32>(archive, 1);
    }
    put<quint32>(archive, 0x06054b50);
    put<quint16>(archive, 0);
    put<quint16>(archive, 0);
    put<quint16>(archive, layout.zip64 ? 0xFFFF : quint16(count));
    put<quint16>(archive, layout.zip64 ? 0xFFFF : quint16(count));
    put<quint32>(archive, size);
    put<quint32>(archive, directoryOffset);
    put<quint16>(archive, 0);
    return archive;
}

const QByteArray kRow = "{\n    \"id\": \"a\"\n}\n";

} // namespace

class TstZipArchiveReader : public QObject {
    Q_OBJECT
private slots:
    void readsWhatItsWriterWrites();
    void readsStoredAndDeflatedEntries();
    void readsMoreThan65535Entries();
    void refusesCraftedArchives_data();
    void refusesCraftedArchives();
    void refusesSharedRecordsQuickly();
    void refusesTooManyEntries();
};

void TstZipArchiveReader::readsWhatItsWriterWrites()
{
    ZipArchiveWriter writer;
    writer.addFile(QStringLiteral("accounts/a.json"), kRow);
    writer.addFile(QStringLiteral("notes/é.txt"), QByteArray());
    writer.addFile(QStringLiteral("manifest.json"), QByteArray(5000, 'x'));
    const QByteArray archive = writer.finish();

    ZipArchiveReader reader(archive);
    QVERIFY2(reader.open(), qPrintable(reader.errorString()));
    QCOMPARE(reader.count(), 3);
    QCOMPARE(reader.name(0), QByteArray("accounts/a.json"));
    QCOMPARE(QString::fromUtf8(reader.name(1)), QStringLiteral("notes/é.txt"));
    QCOMPARE(reader.read(0), kRow);
    QCOMPARE(reader.read(1), QByteArray());
    QCOMPARE(reader.indexOf("manifest.json"), 2);
    QCOMPARE(reader.indexOf("manifest"), -1);
    QCOMPARE(reader.read(2), QByteArray(5000, 'x'));
}

void TstZipArchiveReader::readsStoredAndDeflatedEntries()
{
    const QByteArray big = QByteArray("0123456789abcdef").repeated(4096);
    const QByteArray archive = buildZip({
        {"a", kRow,         false},
        {"b", big,          true },
        {"c", QByteArray(), true },
    });
    ZipArchiveReader reader(archive);
    QVERIFY2(reader.open(), qPrintable(reader.errorString()));
    QCOMPARE(reader.read(0), kRow);
    QCOMPARE(reader.read(1), big);
    QCOMPARE(reader.read(2), QByteArray());
}

// The end record holds 16 bits of count: a large household needs the ZIP64 record, and an archive
// from a writer that wrapped the count is still read whole by its directory.
void TstZipArchiveReader::readsMoreThan65535Entries()
{
    constexpr int entries = 70001;
    ZipArchiveWriter writer;
    for (int i = 0; i < entries; ++i)
        writer.addFile(QStringLiteral("transactions/%1.json").arg(i), QByteArray::number(i));
    const QByteArray archive = writer.finish();
    ZipArchiveReader reader(archive);
    QVERIFY2(reader.open(), qPrintable(reader.errorString()));
    QCOMPARE(reader.count(), entries);
    QCOMPARE(reader.read(entries - 1), QByteArray::number(entries - 1));

    QList<RawEntry> raw;
    for (int i = 0; i < entries; ++i)
        raw.append({QByteArray::number(i), QByteArray()});
    Layout wrapped;
    wrapped.declaredEntries = entries % 65536;
    const QByteArray wrappedArchive = buildZip(raw, wrapped);
    ZipArchiveReader again(wrappedArchive);
    QVERIFY2(again.open(), qPrintable(again.errorString()));
    QCOMPARE(again.count(), entries);
}

void TstZipArchiveReader::refusesCraftedArchives_data()
{
    QTest::addColumn<QByteArray>("archive");
    QTest::addColumn<QString>("reason");
    const QByteArray good = buildZip({
        {"a",   kRow},
        { "b", kRow, true}
    });
    // 20 MiB of zeros deflate to about 20 KiB.
    const QByteArray zeros(20 * 1024 * 1024, '\0');

    QTest::newRow("empty") << QByteArray() << QStringLiteral("too short");
    QTest::newRow("text") << QByteArray("this is not a zip file at all, only some words")
                          << QStringLiteral("no end of central directory");
    QTest::newRow("cut before the end record")
        << good.left(good.size() - 10) << QStringLiteral("no end of central directory");
    QTest::newRow("only the first bytes") << good.left(40) << QStringLiteral("no end of central directory");
    QTest::newRow("bytes after the end record")
        << good + "trailing" << QStringLiteral("no end of central directory");
    {
        Layout l;
        l.declaredEntries = 5;
        QTest::newRow("end record counts more entries") << buildZip(
                                                               {
                                                                   {"a", kRow},
                                                                   {"b", kRow}
        },
                                                               l)
                                                        << QStringLiteral("the end record says 5");
    }
    {
        Layout l;
        l.directorySize = 10000;
        QTest::newRow("directory beyond the file") << buildZip(
                                                          {
                                                              {"a", kRow}
        },
                                                          l)
                                                   << QStringLiteral("outside the file");
    }
    {
        Layout l;
        l.declaredEntries = quint64(1) << 40;
        l.zip64 = true;
        QTest::newRow("ZIP64 count of a trillion") << buildZip(
                                                          {
                                                              {"a", kRow}
        },
                                                          l)
                                                   << QStringLiteral("more than 1000000 entries");
    }
    QTest::newRow("bomb declaring its size") << buildZip({
                                                    {"bomb", zeros, true}
    })
                                             << QStringLiteral("over the limit");
    {
        RawEntry lying{"bomb", zeros, true};
        lying.declaredSize = 100;
        QTest::newRow("bomb declaring 100 bytes") << buildZip({lying}) << QStringLiteral("does not inflate");
    }
    {
        QList<RawEntry> many;
        const QByteArray tenMiB(10 * 1024 * 1024, '\0');
        for (int i = 0; i < 110; ++i)
            many.append({QByteArray::number(i), tenMiB, true});
        QTest::newRow("entries adding up to 1.1 GiB")
            << buildZip(many) << QStringLiteral("add up to more than");
    }
    {
        RawEntry damaged{"a", kRow};
        damaged.declaredCrc = 12345;
        QTest::newRow("wrong checksum") << buildZip({damaged}) << QStringLiteral("does not inflate");
    }
    {
        RawEntry outside{"a", kRow};
        outside.localOffset = 100000;
        QTest::newRow("local header outside the file")
            << buildZip({outside}) << QStringLiteral("without its local header");
    }
    {
        RawEntry second{"b", kRow};
        second.localOffset = 0;
        QTest::newRow("two entries on one local record") << buildZip({
                                                                {"a", kRow},
                                                                second
        })
                                                         << QStringLiteral("overlap");
    }
}

void TstZipArchiveReader::refusesCraftedArchives()
{
    QFETCH(QByteArray, archive);
    QFETCH(QString, reason);
    ZipArchiveReader reader(archive);
    QVERIFY(!reader.open());
    QVERIFY2(reader.errorString().contains(reason), qPrintable(reader.errorString()));
    QCOMPARE(reader.count(), 0);
}

// Three hundred thousand directory records over one local entry: the shape of the small-file bombs.
void TstZipArchiveReader::refusesSharedRecordsQuickly()
{
    Layout l;
    l.sharedRecords = 300000;
    l.zip64 = true;
    const QByteArray archive = buildZip(
        {
            {"a", QByteArray(1024, 'a'), true}
    },
        l);
    QElapsedTimer timer;
    timer.start();
    ZipArchiveReader reader(archive);
    QVERIFY(!reader.open());
    QVERIFY2(reader.errorString().contains(QLatin1String("overlap")), qPrintable(reader.errorString()));
    QVERIFY2(timer.elapsed() < 5000, "a linear refusal, not a hang");
}

void TstZipArchiveReader::refusesTooManyEntries()
{
    QList<RawEntry> entries;
    for (int i = 0; i < 11; ++i)
        entries.append({QByteArray::number(i), kRow});
    const QByteArray archive = buildZip(entries);
    ZipArchiveReader::Limits limits;
    limits.maxEntries = 10;
    ZipArchiveReader reader(archive, limits);
    QVERIFY(!reader.open());
    limits.maxEntries = 11;
    ZipArchiveReader enough(archive, limits);
    QVERIFY(enough.open());
}

QTEST_GUILESS_MAIN(TstZipArchiveReader)
#include "tst_ziparchivereader.moc"
