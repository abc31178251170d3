#include "services/ZipArchiveReader.h"
#include "services/ZipArchiveWriter.h"

#include "support/Line.h"
#include <QDataStream>
#include <QElapsedTimer>

#include <QTest>

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

// One entry of a hand-made archive, with the lies a crafted file may tell.
struct RawEntry {
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

RawEntry entry(const QByteArray &name, const QByteArray &data, bool deflated = false)
{
    return RawEntry{name, data, deflated};
}

// Deflated when it lies about its size.
RawEntry lying(const char *name, const QByteArray &data, std::optional<quint32> size,
               std::optional<quint32> crc, std::optional<quint32> localOffset)
{
    return RawEntry{name, data, size.has_value(), size, crc, localOffset};
}

QByteArray buildZip(const QList<RawEntry> &entries, const Layout &layout = {})
{
    QByteArray archive, directory;
    QDataStream out(&archive, QIODevice::WriteOnly), dir(&directory, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    dir.setByteOrder(QDataStream::LittleEndian);
    quint64 records = 0;
    // Crafted archives repeat one large entry; it is deflated and summed once.
    const char *cachedData = nullptr;
    QByteArray stored;
    quint32 crc = 0;
    const auto prepare = [&](const RawEntry &e) {
        if (e.data.isEmpty() || e.data.constData() != cachedData) {
            cachedData = e.data.isEmpty() ? nullptr : e.data.constData();
            stored = e.deflated ? rawDeflate(e.data) : e.data;
            crc = quint32(crc32(0, reinterpret_cast<const Bytef *>(e.data.constData()), uInt(e.data.size())));
        }
    };
    const auto record = [&](const RawEntry &e, quint32 offset) {
        dir << quint32(0x02014b50) << quint16(20) << quint16(20) << quint16(0) << quint16(e.deflated ? 8 : 0)
            << quint32(0) << e.declaredCrc.value_or(crc) << quint32(stored.size())
            << e.declaredSize.value_or(quint32(e.data.size())) << quint16(e.name.size()) << quint16(0)
            << quint16(0) << quint16(0) << quint16(0) << quint32(0) << offset;
        dir.writeRawData(e.name.constData(), int(e.name.size()));
        ++records;
    };
    for (const RawEntry &e : entries) {
        prepare(e);
        const quint32 offset = quint32(archive.size());
        out << quint32(0x04034b50) << quint16(20) << quint16(0) << quint16(e.deflated ? 8 : 0) << quint32(0)
            << crc << quint32(stored.size()) << quint32(e.data.size()) << quint16(e.name.size())
            << quint16(0);
        out.writeRawData(e.name.constData(), int(e.name.size()));
        out.writeRawData(stored.constData(), int(stored.size()));
        record(e, e.localOffset.value_or(offset));
    }
    if (!entries.isEmpty())
        prepare(entries.first());
    for (int i = 0; i < layout.sharedRecords; ++i)
        record(entries.first(), 0);
    const quint32 directoryOffset = quint32(archive.size());
    out.writeRawData(directory.constData(), int(directory.size()));
    const quint64 count = layout.declaredEntries.value_or(records);
    const quint32 size = layout.directorySize.value_or(quint32(directory.size()));
    if (layout.zip64) {
        const quint64 recordOffset = quint64(archive.size());
        out << quint32(0x06064b50) << quint64(44) << quint16(45) << quint16(45) << quint32(0) << quint32(0)
            << count << count << quint64(size) << quint64(directoryOffset);
        out << quint32(0x07064b50) << quint32(0) << recordOffset << quint32(1);
    }
    const quint16 shortCount = layout.zip64 ? 0xFFFF : quint16(count);
    out << quint32(0x06054b50) << quint16(0) << quint16(0) << shortCount << shortCount << size
        << directoryOffset << quint16(0);
    return archive;
}

const QByteArray kRow = "{\n    \"id\": \"a\"\n}\n";

} // namespace

class TstZipArchiveReader : public QObject {
    Q_OBJECT
private slots:
    void readsWhatItsWriterWrites()
    {
        ZipArchiveWriter writer;
        writer.addFile(QStringLiteral("accounts/a.json"), kRow);
        writer.addFile(QStringLiteral("notes/é.txt"), QByteArray());
        writer.addFile(QStringLiteral("manifest.json"), QByteArray(5000, 'x'));
        const QByteArray archive = writer.finish();
        ZipArchiveReader reader(archive);
        QVERIFY2(reader.open(), qPrintable(reader.errorString()));
        QCOMPARE(line(reader.count(), reader.name(0), QString::fromUtf8(reader.name(1)),
                      reader.indexOf("manifest.json"), reader.indexOf("manifest"), reader.read(1).size()),
                 "3 accounts/a.json notes/é.txt 2 -1 0");
        QCOMPARE(reader.read(0), kRow);
        QCOMPARE(reader.read(2), QByteArray(5000, 'x'));

        const QByteArray big = QByteArray("0123456789abcdef").repeated(4096);
        const QByteArray crafted = buildZip({entry("a", kRow), entry("b", big, true), entry("c", {}, true)});
        ZipArchiveReader stored(crafted);
        QVERIFY2(stored.open(), qPrintable(stored.errorString()));
        QVERIFY(stored.read(0) == kRow && stored.read(1) == big && stored.read(2).isEmpty());
    }

    // The end record holds 16 bits of count: a large household needs the ZIP64 record, and an archive
    // from a writer that wrapped the count is still read whole by its directory.
    void readsMoreThan65535Entries()
    {
        constexpr int entries = 70001;
        ZipArchiveWriter writer;
        QList<RawEntry> raw;
        for (int i = 0; i < entries; ++i) {
            writer.addFile(QStringLiteral("transactions/%1.json").arg(i), QByteArray::number(i));
            raw.append({QByteArray::number(i), QByteArray()});
        }
        const QByteArray archive = writer.finish();
        ZipArchiveReader reader(archive);
        QVERIFY2(reader.open(), qPrintable(reader.errorString()));
        QCOMPARE(reader.count(), entries);
        QCOMPARE(reader.read(entries - 1), QByteArray::number(entries - 1));
        const QByteArray wrapped = buildZip(raw, {entries % 65536});
        ZipArchiveReader again(wrapped);
        QVERIFY2(again.open(), qPrintable(again.errorString()));
        QCOMPARE(again.count(), entries);
    }

    void refusesCraftedArchives_data()
    {
        QTest::addColumn<QByteArray>("archive");
        QTest::addColumn<QString>("reason");
        const QByteArray good = buildZip({entry("a", kRow), entry("b", kRow, true)});
        // 20 MiB of zeros deflate to about 20 KiB.
        const QByteArray zeros(20 * 1024 * 1024, '\0');
        const char *noEnd = "no end of central directory";
        QList<RawEntry> many;
        const QByteArray tenMiB(10 * 1024 * 1024, '\0');
        for (int i = 0; i < 110; ++i)
            many.append(entry(QByteArray::number(i), tenMiB, true));
        // Three hundred thousand directory records over one local entry: the shape of the small-file bombs.
        const Layout shared{{}, {}, true, 300000};
        // clang-format off
        QTest::newRow("empty")                          << QByteArray() << "too short";
        QTest::newRow("text")                           << QByteArray("this is not a zip file, only some words") << noEnd;
        QTest::newRow("cut before the end record")      << good.left(good.size() - 10) << noEnd;
        QTest::newRow("only the first bytes")           << good.left(40) << noEnd;
        QTest::newRow("bytes after the end record")     << good + "trailing" << noEnd;
        QTest::newRow("end record counts more entries") << buildZip({entry("a", kRow), entry("b", kRow)}, {5}) << "the end record says 5";
        QTest::newRow("directory beyond the file")      << buildZip({entry("a", kRow)}, {{}, 10000}) << "outside the file";
        QTest::newRow("ZIP64 count of a trillion")      << buildZip({entry("a", kRow)}, {quint64(1) << 40, {}, true}) << "more than 1000000 entries";
        QTest::newRow("bomb declaring its size")        << buildZip({entry("bomb", zeros, true)}) << "over the limit";
        QTest::newRow("bomb declaring 100 bytes")       << buildZip({lying("bomb", zeros, 100, {}, {})}) << "does not inflate";
        QTest::newRow("entries adding up to 1.1 GiB")   << buildZip(many) << "add up to more than";
        QTest::newRow("wrong checksum")                 << buildZip({lying("a", kRow, {}, 12345, {})}) << "does not inflate";
        QTest::newRow("local header outside the file")  << buildZip({lying("a", kRow, {}, {}, 100000)}) << "without its local header";
        QTest::newRow("two entries on one local record") << buildZip({entry("a", kRow), lying("b", kRow, {}, {}, 0)}) << "overlap";
        QTest::newRow("shared records")                 << buildZip({entry("a", QByteArray(1024, 'a'), true)}, shared) << "overlap";
        // clang-format on
    }

    void refusesCraftedArchives()
    {
        QFETCH(QByteArray, archive);
        QFETCH(QString, reason);
        QElapsedTimer timer;
        timer.start();
        ZipArchiveReader reader(archive);
        QVERIFY(!reader.open());
        QVERIFY2(reader.errorString().contains(reason), qPrintable(reader.errorString()));
        QCOMPARE(reader.count(), 0);
        QVERIFY2(timer.elapsed() < 5000, "a linear refusal, not a hang");
    }

    void refusesTooManyEntries()
    {
        QList<RawEntry> entries;
        for (int i = 0; i < 11; ++i)
            entries.append(entry(QByteArray::number(i), kRow));
        const QByteArray archive = buildZip(entries);
        ZipArchiveReader::Limits limits;
        limits.maxEntries = 10;
        QVERIFY(!ZipArchiveReader(archive, limits).open());
        limits.maxEntries = 11;
        QVERIFY(ZipArchiveReader(archive, limits).open());
    }
};

QTEST_GUILESS_MAIN(TstZipArchiveReader)
#include "tst_ziparchivereader.moc"
