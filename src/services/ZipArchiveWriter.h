#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QString>

#include <memory>

class QZipWriter;

// Builds a ZIP archive of stored entries in memory with QZipWriter. QZipWriter keeps the entry count of its
// end record in 16 bits, so an archive of more than 65,535 entries would show other tools only the remainder;
// for those, finish() adds the ZIP64 end records that carry the full count.
class ZipArchiveWriter {
public:
    ZipArchiveWriter();
    ~ZipArchiveWriter();
    ZipArchiveWriter(const ZipArchiveWriter &) = delete;
    ZipArchiveWriter &operator=(const ZipArchiveWriter &) = delete;

    void addFile(const QString &name, const QByteArray &contents);
    qint64 count() const { return m_count; }
    // The whole archive; the writer takes no more entries after it.
    QByteArray finish();

private:
    QByteArray m_data;
    QBuffer m_buffer;
    std::unique_ptr<QZipWriter> m_writer;
    qint64 m_count = 0;
};
