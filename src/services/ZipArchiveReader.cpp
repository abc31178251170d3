#include "services/ZipArchiveReader.h"

#include <QtEndian>

#include <algorithm>
#include <zlib.h>

namespace {

constexpr quint32 kLocalHeaderSignature = 0x04034b50;
constexpr quint32 kCentralHeaderSignature = 0x02014b50;
constexpr quint32 kEndSignature = 0x06054b50;
constexpr quint32 kZip64EndSignature = 0x06064b50;
constexpr quint32 kZip64LocatorSignature = 0x07064b50;

constexpr qsizetype kLocalHeaderSize = 30;
constexpr qsizetype kCentralHeaderSize = 46;
constexpr qsizetype kEndSize = 22;
constexpr qsizetype kZip64EndSize = 56;
constexpr qsizetype kZip64LocatorSize = 20;
constexpr qsizetype kMaxCommentLength = 0xFFFF;

constexpr int kMethodStored = 0;
constexpr int kMethodDeflated = 8;
constexpr quint16 kFlagEncrypted = 0x0001;
constexpr quint16 kFlagStrongEncryption = 0x0040;
// In an entry, this value says that the real one is in a ZIP64 extra field.
constexpr quint32 kZip64Marker = 0xFFFFFFFF;

// Little-endian fields at a position the caller has bounds-checked.
quint16 u16(const QByteArray &data, qsizetype pos)
{
    return qFromLittleEndian<quint16>(data.constData() + pos);
}

quint32 u32(const QByteArray &data, qsizetype pos)
{
    return qFromLittleEndian<quint32>(data.constData() + pos);
}

quint64 u64(const QByteArray &data, qsizetype pos)
{
    return qFromLittleEndian<quint64>(data.constData() + pos);
}

} // namespace

ZipArchiveReader::ZipArchiveReader(const QByteArray &data)
    : ZipArchiveReader(data, Limits())
{
}

ZipArchiveReader::ZipArchiveReader(const QByteArray &data, const Limits &limits)
    : m_data(data)
    , m_limits(limits)
    , m_stream(std::make_unique<z_stream_s>())
{
}

ZipArchiveReader::~ZipArchiveReader()
{
    if (m_streamReady)
        inflateEnd(m_stream.get());
}

bool ZipArchiveReader::fail(const QString &reason)
{
    m_entries.clear();
    m_error = reason;
    return false;
}

bool ZipArchiveReader::open()
{
    m_entries.clear();
    m_error.clear();
    if (!m_streamReady) {
        *m_stream = z_stream_s();
        // Raw deflate data, as ZIP stores it: no zlib header.
        if (inflateInit2(m_stream.get(), -MAX_WBITS) != Z_OK)
            return fail(QStringLiteral("cannot start zlib"));
        m_streamReady = true;
    }
    if (!readDirectory() || !checkLayout())
        return false;

    // Every entry is inflated once here, so that a lie about a size or a damaged entry refuses the whole
    // archive rather than showing up after part of it has been restored.
    QByteArray scratch;
    for (const Entry &entry : std::as_const(m_entries)) {
        if (!extract(entry, &scratch))
            return fail(QStringLiteral("entry %1 does not inflate to its declared size and checksum")
                            .arg(QString::fromUtf8(m_data.mid(entry.nameOffset, entry.nameLength))));
    }
    return true;
}

bool ZipArchiveReader::readDirectory()
{
    const qsizetype size = m_data.size();
    if (size < kEndSize)
        return fail(QStringLiteral("too short for a ZIP archive"));

    // The end record is the last thing in the file but for its comment, whose length it gives.
    qsizetype end = -1;
    const qsizetype lowest = qMax<qsizetype>(0, size - kEndSize - kMaxCommentLength);
    for (qsizetype pos = size - kEndSize; pos >= lowest; --pos) {
        if (u32(m_data, pos) == kEndSignature && pos + kEndSize + u16(m_data, pos + 20) == size) {
            end = pos;
            break;
        }
    }
    if (end < 0)
        return fail(QStringLiteral("no end of central directory record"));
    if (u16(m_data, end + 4) != 0 || u16(m_data, end + 6) != 0 ||
        u16(m_data, end + 8) != u16(m_data, end + 10))
        return fail(QStringLiteral("archives spanning several disks are not read"));

    quint64 declaredEntries = u16(m_data, end + 10);
    quint64 directorySize = u32(m_data, end + 12);
    quint64 directoryOffset = u32(m_data, end + 16);
    qsizetype directoryLimit = end;
    bool zip64 = false;

    const qsizetype locator = end - kZip64LocatorSize;
    if (locator >= 0 && u32(m_data, locator) == kZip64LocatorSignature) {
        const quint64 recordOffset = u64(m_data, locator + 8);
        if (u32(m_data, locator + 4) != 0 || u32(m_data, locator + 16) > 1 || locator < kZip64EndSize ||
            recordOffset > quint64(locator - kZip64EndSize))
            return fail(QStringLiteral("bad ZIP64 end locator"));
        const qsizetype record = qsizetype(recordOffset);
        const quint64 recordSize = u64(m_data, record + 4);
        if (u32(m_data, record) != kZip64EndSignature || recordSize < quint64(kZip64EndSize - 12) ||
            recordSize > quint64(locator - record - 12) || u32(m_data, record + 16) != 0 ||
            u32(m_data, record + 20) != 0 || u64(m_data, record + 24) != u64(m_data, record + 32))
            return fail(QStringLiteral("bad ZIP64 end record"));
        declaredEntries = u64(m_data, record + 32);
        directorySize = u64(m_data, record + 40);
        directoryOffset = u64(m_data, record + 48);
        directoryLimit = record;
        zip64 = true;
    }

    if (directoryOffset > quint64(directoryLimit) ||
        directorySize > quint64(directoryLimit) - directoryOffset)
        return fail(QStringLiteral("central directory lies outside the file"));
    if (declaredEntries > quint64(m_limits.maxEntries))
        return fail(QStringLiteral("more than %1 entries").arg(m_limits.maxEntries));

    const qsizetype directoryStart = qsizetype(directoryOffset);
    const qsizetype directoryEnd = directoryStart + qsizetype(directorySize);
    // The declared count is not trusted for the allocation: each entry takes at least a header.
    m_entries.reserve(qsizetype(qMin<quint64>(declaredEntries, directorySize / kCentralHeaderSize)));
    qint64 totalSize = 0;
    for (qsizetype pos = directoryStart; pos < directoryEnd;) {
        if (directoryEnd - pos < kCentralHeaderSize || u32(m_data, pos) != kCentralHeaderSignature)
            return fail(QStringLiteral("central directory is truncated or damaged"));
        if (m_entries.size() >= m_limits.maxEntries)
            return fail(QStringLiteral("more than %1 entries").arg(m_limits.maxEntries));
        const quint16 flags = u16(m_data, pos + 8);
        const int method = u16(m_data, pos + 10);
        const quint32 compressedSize = u32(m_data, pos + 20);
        const quint32 entrySize = u32(m_data, pos + 24);
        const int nameLength = u16(m_data, pos + 28);
        const qsizetype next =
            pos + kCentralHeaderSize + nameLength + u16(m_data, pos + 30) + u16(m_data, pos + 32);
        const quint32 localOffset = u32(m_data, pos + 42);
        if (next > directoryEnd)
            return fail(QStringLiteral("central directory is truncated or damaged"));
        if (flags & (kFlagEncrypted | kFlagStrongEncryption))
            return fail(QStringLiteral("encrypted entries are not read"));
        if (method != kMethodStored && method != kMethodDeflated)
            return fail(QStringLiteral("compression method %1 is not read").arg(method));
        if (compressedSize == kZip64Marker || entrySize == kZip64Marker || localOffset == kZip64Marker ||
            u16(m_data, pos + 34) != 0)
            return fail(QStringLiteral("entries beyond 4 GiB are not read"));
        if (method == kMethodStored && compressedSize != entrySize)
            return fail(QStringLiteral("stored entry with two sizes"));
        if (entrySize > m_limits.maxEntrySize)
            return fail(QStringLiteral("an entry of %1 bytes is over the limit").arg(entrySize));
        totalSize += entrySize;
        if (totalSize > m_limits.maxTotalSize)
            return fail(QStringLiteral("entries add up to more than %1 bytes").arg(m_limits.maxTotalSize));

        // Local records lie before the directory; the directory's sizes are the ones that count, since a
        // local header followed by a data descriptor leaves its own at zero.
        const qsizetype local = qsizetype(localOffset);
        if (local > directoryStart - kLocalHeaderSize || u32(m_data, local) != kLocalHeaderSignature)
            return fail(QStringLiteral("entry without its local header"));
        const qsizetype dataOffset =
            local + kLocalHeaderSize + u16(m_data, local + 26) + u16(m_data, local + 28);
        if (dataOffset > directoryStart || qsizetype(compressedSize) > directoryStart - dataOffset)
            return fail(QStringLiteral("entry data runs into the directory"));

        Entry entry;
        entry.nameOffset = pos + kCentralHeaderSize;
        entry.nameLength = nameLength;
        entry.method = method;
        entry.crc = u32(m_data, pos + 16);
        entry.localOffset = local;
        entry.dataOffset = dataOffset;
        entry.compressedSize = compressedSize;
        entry.size = entrySize;
        m_entries.append(entry);
        pos = next;
    }

    // Writers that keep the count in 16 bits store it modulo 65,536; the directory itself is complete.
    const quint64 found = quint64(m_entries.size());
    if (found != declaredEntries && (zip64 || found % 65536 != declaredEntries))
        return fail(QStringLiteral("central directory holds %1 entries, the end record says %2")
                        .arg(found)
                        .arg(declaredEntries));
    return true;
}

// Two entries that share bytes are how a few kilobytes turn into a million entries of gigabytes each.
bool ZipArchiveReader::checkLayout()
{
    QList<const Entry *> byOffset;
    byOffset.reserve(m_entries.size());
    for (const Entry &entry : std::as_const(m_entries))
        byOffset.append(&entry);
    std::sort(byOffset.begin(), byOffset.end(),
              [](const Entry *a, const Entry *b) { return a->localOffset < b->localOffset; });
    for (qsizetype i = 1; i < byOffset.size(); ++i) {
        const Entry *before = byOffset.at(i - 1);
        if (before->dataOffset + before->compressedSize > byOffset.at(i)->localOffset)
            return fail(QStringLiteral("entries overlap"));
    }
    return true;
}

bool ZipArchiveReader::extract(const Entry &entry, QByteArray *out) const
{
    const auto *input = reinterpret_cast<const Bytef *>(m_data.constData() + entry.dataOffset);
    if (entry.method == kMethodStored) {
        *out = m_data.mid(entry.dataOffset, entry.size);
    } else {
        // One byte more than declared: an entry that fills it holds more than it says.
        out->resize(entry.size + 1);
        z_stream_s *stream = m_stream.get();
        if (inflateReset(stream) != Z_OK)
            return false;
        stream->next_in = const_cast<Bytef *>(input);
        stream->avail_in = uInt(entry.compressedSize);
        stream->next_out = reinterpret_cast<Bytef *>(out->data());
        stream->avail_out = uInt(entry.size + 1);
        const int result = inflate(stream, Z_FINISH);
        if (result != Z_STREAM_END || qint64(stream->total_out) != entry.size)
            return false;
        out->resize(entry.size);
    }
    return quint32(crc32(0, reinterpret_cast<const Bytef *>(out->constData()), uInt(out->size()))) ==
           entry.crc;
}

QByteArray ZipArchiveReader::name(int index) const
{
    const Entry &entry = m_entries.at(index);
    return m_data.mid(entry.nameOffset, entry.nameLength);
}

int ZipArchiveReader::indexOf(const QByteArray &name) const
{
    for (int i = 0; i < m_entries.size(); ++i) {
        const Entry &entry = m_entries.at(i);
        if (QByteArrayView(m_data.constData() + entry.nameOffset, entry.nameLength) == name)
            return i;
    }
    return -1;
}

QByteArray ZipArchiveReader::read(int index) const
{
    QByteArray bytes;
    if (!extract(m_entries.at(index), &bytes))
        return {};
    return bytes;
}
