#include "services/ImportBytes.h"

#include <QStringDecoder>

namespace {

// Windows-1252 at 0x80 to 0x9F; the five bytes it leaves unassigned keep their own code point.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

bool startsWith(const QByteArray &bytes, std::initializer_list<unsigned char> mark)
{
    if (bytes.size() < qsizetype(mark.size()))
        return false;
    qsizetype i = 0;
    for (const unsigned char b : mark) {
        if (static_cast<unsigned char>(bytes.at(i++)) != b)
            return false;
    }
    return true;
}

QString decodeUtf16(const QByteArray &bytes, QStringDecoder::Encoding encoding)
{
    QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless);
    return decoder.decode(QByteArrayView(bytes).sliced(2));
}

QString decodeCp1252(const QByteArray &bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        *out++ = QChar(b >= 0x80 && b <= 0x9F ? kCp1252High[b - 0x80] : char16_t(b));
    }
    return text;
}

} // namespace

bool isStrictUtf8(const QByteArray &bytes)
{
    const auto *p = reinterpret_cast<const unsigned char *>(bytes.constData());
    const qsizetype size = bytes.size();
    qsizetype i = 0;
    while (i < size) {
        const unsigned char lead = p[i];
        if (lead < 0x80) {
            ++i;
            continue;
        }
        int continuation = 0;
        char32_t codePoint = 0;
        char32_t minimum = 0;
        if ((lead & 0xE0) == 0xC0) {
            continuation = 1;
            codePoint = lead & 0x1F;
            minimum = 0x80;
        } else if ((lead & 0xF0) == 0xE0) {
            continuation = 2;
            codePoint = lead & 0x0F;
            minimum = 0x800;
        } else if ((lead & 0xF8) == 0xF0) {
            continuation = 3;
            codePoint = lead & 0x07;
            minimum = 0x10000;
        } else {
            return false;
        }
        if (size - i - 1 < continuation)
            return false;
        for (int k = 1; k <= continuation; ++k) {
            const unsigned char next = p[i + k];
            if ((next & 0xC0) != 0x80)
                return false;
            codePoint = (codePoint << 6) | (next & 0x3F);
        }
        if (codePoint < minimum || (codePoint >= 0xD800 && codePoint <= 0xDFFF) || codePoint > 0x10FFFF)
            return false;
        i += continuation + 1;
    }
    return true;
}

QString decodeImportBytes(const QByteArray &bytes)
{
    if (startsWith(bytes, {0xEF, 0xBB, 0xBF}))
        return QString::fromUtf8(QByteArrayView(bytes).sliced(3));
    if (startsWith(bytes, {0xFF, 0xFE}))
        return decodeUtf16(bytes, QStringDecoder::Utf16LE);
    if (startsWith(bytes, {0xFE, 0xFF}))
        return decodeUtf16(bytes, QStringDecoder::Utf16BE);
    if (bytes.isEmpty())
        return QString();
    if (isStrictUtf8(bytes))
        return QString::fromUtf8(bytes);
    return decodeCp1252(bytes);
}
