#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

struct z_stream_s;

// Reads a ZIP archive held in memory, and only after checking it whole: the end record and the
// central directory must agree, every entry must be stored or deflated, lie inside the file before the
// directory without overlapping another, stay within the limits, and inflate to exactly its declared
// size and checksum. A zip bomb, a directory that lies about its entries or a truncated file is thus
// refused before the first entry is handed out, not halfway through a restore.
//
// QZipReader is no help here: it keeps the entry count in 16 bits (an archive of 70,001 entries lists
// 4,465), finds an entry by a linear search of its name, inflates whatever size an entry claims, and
// reports no error for bytes that are no ZIP at all.
class ZipArchiveReader {
public:
    struct Limits {
        qint64 maxEntries = 1000000;
        qint64 maxEntrySize = 16 * 1024 * 1024;
        qint64 maxTotalSize = qint64(1) << 30;
    };

    // The bytes are borrowed: they must outlive the reader.
    explicit ZipArchiveReader(const QByteArray &data);
    ZipArchiveReader(const QByteArray &data, const Limits &limits);
    ZipArchiveReader(QByteArray &&data) = delete;
    ZipArchiveReader(QByteArray &&data, const Limits &limits) = delete;
    ~ZipArchiveReader();
    ZipArchiveReader(const ZipArchiveReader &) = delete;
    ZipArchiveReader &operator=(const ZipArchiveReader &) = delete;

    // Reads the directory and checks every entry; false, with the reason in errorString(), for anything
    // but a whole, readable archive. Only then may the entries be read.
    bool open();
    QString errorString() const { return m_error; }

    int count() const { return int(m_entries.size()); }
    // The name as stored, in the archive's order.
    QByteArray name(int index) const;
    // The first entry of that name, or -1.
    int indexOf(const QByteArray &name) const;
    // The entry's bytes; open() has already shown that they inflate cleanly.
    QByteArray read(int index) const;

private:
    struct Entry {
        qsizetype nameOffset = 0;
        int nameLength = 0;
        int method = 0;
        quint32 crc = 0;
        qint64 localOffset = 0;
        qint64 dataOffset = 0;
        qint64 compressedSize = 0;
        qint64 size = 0;
    };

    bool fail(const QString &reason);
    bool readDirectory();
    bool checkLayout();
    bool extract(const Entry &entry, QByteArray *out) const;

    const QByteArray &m_data;
    Limits m_limits;
    QList<Entry> m_entries;
    QString m_error;
    std::unique_ptr<z_stream_s> m_stream;
    bool m_streamReady = false;
};
