#pragma once

#include <QByteArray>
#include <QString>

// The text of an imported QIF or CSV file. A byte order mark decides; otherwise the bytes are UTF-8
// when every sequence is valid UTF-8, and Windows-1252 when not, which reads the older exports of
// Western European banks and programs (ISO-8859-1 included) as their authors meant.
QString decodeImportBytes(const QByteArray &bytes);

// True when the bytes are well-formed UTF-8: no overlong form, no surrogate, nothing past U+10FFFF.
bool isStrictUtf8(const QByteArray &bytes);
