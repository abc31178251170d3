#include "services/QifParser.h"

#include <QSet>

#include <charconv>
#include <climits>
#include <cmath>
#include <string>

namespace {

// Leading byte order marks (a decoder may let one through) and stray CRs go before the trim.
QStringView cleanLine(QStringView line)
{
    while (!line.isEmpty() && (line.front() == QChar(0xFEFF) || line.front() == QLatin1Char('\r')))
        line = line.sliced(1);
    return line.trimmed();
}

struct DatePiece {
    qsizetype length = 0;
    bool integer = true; // only ASCII digits, and no larger than an int
    qint64 value = 0;
};

// The pieces of a date value: "-", ".", "'" and "/" all separate, blanks are deleted, empty pieces
// dropped. Only the first three are kept, but all are counted.
struct DatePieces {
    qsizetype count = 0;
    DatePiece piece[3];
};

DatePieces splitDate(QStringView value)
{
    DatePieces out;
    DatePiece current;
    const auto close = [&] {
        if (current.length > 0) {
            if (out.count < 3)
                out.piece[out.count] = current;
            ++out.count;
        }
        current = DatePiece();
    };
    for (const QChar c : value) {
        const char16_t u = c.unicode();
        if (u == u'/' || u == u'-' || u == u'.' || u == u'\'') {
            close();
            continue;
        }
        if (c.isSpace())
            continue;
        ++current.length;
        if (u >= u'0' && u <= u'9') {
            if (current.integer) {
                current.value = current.value * 10 + (u - u'0');
                if (current.value > INT_MAX)
                    current.integer = false;
            }
        } else {
            current.integer = false;
        }
    }
    close();
    return out;
}

bool isCurrencySign(QChar c)
{
    switch (c.unicode()) {
    case u'$':
    case u'\u20AC': // euro
    case u'\u00A3': // pound
    case u'\u00A5': // yen
    case u'\u00A2': // cent
        return true;
    default: return false;
    }
}

// A mark that stands alone in the amount is a group mark only if the groups look like thousands.
bool groupsAreThousands(const QString &text, QChar mark)
{
    qsizetype start = 0;
    bool first = true;
    while (true) {
        const qsizetype end = text.indexOf(mark, start);
        const qsizetype length = (end < 0 ? text.size() : end) - start;
        if (first ? (length < 1 || length > 3) : length != 3)
            return false;
        if (end < 0)
            return true;
        first = false;
        start = end + 1;
    }
}

void readCategoryField(QStringView value, QString &category, QString &transferAccount)
{
    value = value.trimmed();
    // Behind a "/" stands the class, which the register does not keep.
    const qsizetype slash = value.indexOf(QLatin1Char('/'));
    if (slash >= 0)
        value = value.first(slash).trimmed();
    if (value.size() >= 2 && value.startsWith(QLatin1Char('[')) && value.endsWith(QLatin1Char(']'))) {
        transferAccount = value.sliced(1, value.size() - 2).trimmed().toString();
        category.clear();
    } else {
        category = value.toString();
        transferAccount.clear();
    }
}

QString typeName(QStringView headerLine)
{
    return headerLine.sliced(6).trimmed().toString().toLower();
}

class Parser {
public:
    explicit Parser(QifDateOrder order)
        : m_order(order)
    {
    }

    void line(QStringView line)
    {
        line = cleanLine(line);
        if (line.isEmpty())
            return;
        const QChar letter = line.front();
        if (letter == QLatin1Char('!')) {
            finish();
            m_section = QifParser::sectionOf(line);
            if (m_section == QifSection::Transactions)
                m_accountType = QifParser::accountTypeOf(line);
            return;
        }
        if (letter == QLatin1Char('^')) {
            finish();
            return;
        }
        field(letter.unicode(), line.sliced(1).trimmed());
    }

    void finish()
    {
        closeSplit();
        switch (m_section) {
        case QifSection::AccountBlock:
            // Of a list of account blocks the last one finished stands.
            if (!m_pendingAccount.isEmpty())
                m_currentAccount = m_pendingAccount;
            m_pendingAccount.clear();
            break;
        case QifSection::Categories:
            if (m_hasContent && !m_category.name.isEmpty())
                m_result.categories.append(m_category);
            m_category = QifCategory();
            break;
        case QifSection::Metadata:
            if (m_hasContent)
                ++m_result.metadataRecords;
            break;
        case QifSection::Transactions:
        case QifSection::Unknown: keepTransaction(); break;
        }
        m_transaction = QifTransaction();
        m_hasContent = m_hasDate = m_hasAmount = false;
    }

    QifParseResult take()
    {
        m_result.dateOrder = m_order == QifDateOrder::Auto ? QifDateOrder::MonthFirst : m_order;
        return std::move(m_result);
    }

private:
    void keepTransaction()
    {
        if (!m_hasContent)
            return;
        if (!m_hasDate || !m_hasAmount) {
            ++m_result.skippedRecords;
            return;
        }
        m_transaction.sourceAccount = m_currentAccount;
        m_result.transactions.append(std::move(m_transaction));
        // An account enters the list only through a kept record, with the type then in force.
        if (!m_currentAccount.isEmpty()) {
            const QString key = m_currentAccount.toLower();
            if (!m_seenAccounts.contains(key)) {
                m_seenAccounts.insert(key);
                m_result.accounts.append({m_currentAccount, m_accountType});
            }
        }
    }

    void closeSplit()
    {
        if (!m_splitOpen)
            return;
        m_transaction.splits.append(std::move(m_split));
        m_split = QifSplit();
        m_splitOpen = false;
    }

    void field(char16_t letter, QStringView value)
    {
        switch (m_section) {
        case QifSection::AccountBlock:
            if (letter == u'N')
                m_pendingAccount = value.toString();
            m_hasContent = true;
            return;
        case QifSection::Categories:
            if (letter == u'N')
                m_category.name = value.toString();
            else if (letter == u'D')
                m_category.description = value.toString();
            else if (letter == u'I')
                m_category.isIncome = true;
            else if (letter == u'E')
                m_category.isIncome = false;
            m_hasContent = true;
            return;
        case QifSection::Metadata: m_hasContent = true; return;
        case QifSection::Transactions:
        case QifSection::Unknown: transactionField(letter, value); return;
        }
    }

    void transactionField(char16_t letter, QStringView value)
    {
        switch (letter) {
        case u'D':
            if (const QDate date = QifParser::parseDate(value, m_order); date.isValid()) {
                m_transaction.date = date;
                m_hasDate = true;
            }
            break;
        case u'T':
        case u'U':
            if (const auto amount = QifParser::parseAmount(value)) {
                m_transaction.amount = *amount;
                m_hasAmount = true;
            }
            break;
        case u'P': m_transaction.payee = value.toString(); break;
        case u'M': m_transaction.memo = value.toString(); break;
        case u'N': m_transaction.checkNumber = value.toString(); break;
        case u'C':
            if (!value.isEmpty()) {
                const char16_t mark = value.front().toLower().unicode();
                if (mark == u'x' || mark == u'*' || mark == u'c') {
                    m_transaction.cleared = true;
                } else if (mark == u'r') {
                    m_transaction.cleared = true;
                    m_transaction.reconciled = true;
                }
            }
            break;
        case u'L': readCategoryField(value, m_transaction.category, m_transaction.transferAccount); break;
        case u'A': break; // address lines are not kept
        case u'Y': m_transaction.security = value.toString(); break;
        case u'S':
            closeSplit();
            m_splitOpen = true;
            readCategoryField(value, m_split.category, m_split.transferAccount);
            break;
        case u'E':
            if (m_splitOpen)
                m_split.memo = value.toString();
            break;
        case u'$':
            if (const auto amount = QifParser::parseAmount(value)) {
                if (m_splitOpen) {
                    m_split.amount = *amount;
                } else {
                    m_transaction.amount = *amount;
                    m_hasAmount = true;
                }
            }
            break;
        default: return; // a letter this reader does not know makes no record
        }
        m_hasContent = true;
    }

    QifDateOrder m_order;
    QifParseResult m_result;
    QifSection m_section = QifSection::Unknown;
    QifAccountType m_accountType = QifAccountType::Bank;
    QString m_currentAccount;
    QString m_pendingAccount;
    QSet<QString> m_seenAccounts;
    QifTransaction m_transaction;
    QifCategory m_category;
    QifSplit m_split;
    bool m_hasContent = false;
    bool m_hasDate = false;
    bool m_hasAmount = false;
    bool m_splitOpen = false;
};

} // namespace

QifParseResult QifParser::parse(const QString &text, QifDateOrder order)
{
    QString normalised = text;
    normalised.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    normalised.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    const QList<QStringView> lines = QStringView(normalised).split(QLatin1Char('\n'));

    if (order == QifDateOrder::Auto)
        order = detectDateOrder(lines);
    Parser parser(order);
    for (const QStringView line : lines)
        parser.line(line);
    parser.finish();
    return parser.take();
}

QifDateOrder QifParser::detectDateOrder(const QList<QStringView> &lines)
{
    for (const QStringView raw : lines) {
        const QStringView line = cleanLine(raw);
        if (line.size() < 2 || line.front() != QLatin1Char('D'))
            continue;
        const DatePieces pieces = splitDate(line.sliced(1).trimmed());
        if (pieces.count < 3 || !pieces.piece[0].integer || !pieces.piece[2].integer)
            continue;
        // A year in front tells nothing about the order of the other two.
        if (pieces.piece[0].length == 4)
            continue;
        if (pieces.piece[0].value > 12)
            return QifDateOrder::DayFirst;
    }
    return QifDateOrder::MonthFirst;
}

QDate QifParser::parseDate(QStringView value, QifDateOrder order)
{
    value = value.trimmed();
    if (value.isEmpty())
        return {};
    const DatePieces pieces = splitDate(value);
    if (pieces.count < 3)
        return {};
    for (const DatePiece &piece : pieces.piece) {
        if (!piece.integer)
            return {};
    }
    const qint64 a = pieces.piece[0].value;
    const qint64 b = pieces.piece[1].value;
    const qint64 c = pieces.piece[2].value;
    qint64 year = 0;
    qint64 month = 0;
    qint64 day = 0;
    if (pieces.piece[0].length == 4) {
        year = a;
        month = b;
        day = c;
    } else {
        const bool dayFirst = order == QifDateOrder::DayFirst || (order == QifDateOrder::Auto && a >= 13);
        day = dayFirst ? a : b;
        month = dayFirst ? b : a;
        year = (pieces.piece[2].length == 4 || c > 31) ? c : c + 2000;
    }
    if (year < 100)
        year += year < 70 ? 2000 : 1900;
    // Stored dates are four-digit ISO text; a later year cannot be written.
    if (year > 9999 || month > 12 || day > 31)
        return {};
    return QDate(int(year), int(month), int(day));
}

std::optional<qint64> QifParser::parseAmount(QStringView value)
{
    QStringView trimmed = value.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    bool negative = false;
    if (trimmed.size() >= 2 && trimmed.startsWith(QLatin1Char('(')) && trimmed.endsWith(QLatin1Char(')'))) {
        negative = true;
        trimmed = trimmed.sliced(1, trimmed.size() - 2).trimmed();
    }

    QString text;
    text.reserve(trimmed.size());
    for (const QChar c : trimmed) {
        if (!c.isSpace() && !isCurrencySign(c))
            text.append(c);
    }
    if (text.isEmpty())
        return std::nullopt;
    if (text.front() == QLatin1Char('+')) {
        text.remove(0, 1);
    } else if (text.front() == QLatin1Char('-')) {
        text.remove(0, 1);
        negative = !negative;
    }
    if (text.isEmpty())
        return std::nullopt;

    // Which of "." and "," is the decimal mark is told by the text alone, never by a locale.
    const qsizetype lastDot = text.lastIndexOf(QLatin1Char('.'));
    const qsizetype lastComma = text.lastIndexOf(QLatin1Char(','));
    QChar decimalMark;
    QChar groupMark;
    if (lastDot >= 0 && lastComma >= 0) {
        decimalMark = lastDot > lastComma ? QLatin1Char('.') : QLatin1Char(',');
        groupMark = lastDot > lastComma ? QLatin1Char(',') : QLatin1Char('.');
    } else if (lastDot >= 0 || lastComma >= 0) {
        const QChar mark = lastDot >= 0 ? QLatin1Char('.') : QLatin1Char(',');
        const qsizetype position = std::max(lastDot, lastComma);
        const qsizetype behind = text.size() - position - 1;
        if (text.count(mark) == 1 && (behind != 3 || position == 0)) {
            decimalMark = mark;
        } else {
            if (!groupsAreThousands(text, mark))
                return std::nullopt;
            groupMark = mark;
        }
    }

    std::string number;
    number.reserve(size_t(text.size()));
    for (const QChar c : std::as_const(text)) {
        if (!groupMark.isNull() && c == groupMark)
            continue;
        if (!decimalMark.isNull() && c == decimalMark)
            number.push_back('.');
        else if ((c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('.'))
            number.push_back(char(c.unicode()));
        else
            return std::nullopt;
    }
    if (number.empty() || number == ".")
        return std::nullopt;
    double parsed = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), parsed);
    if (error != std::errc() || end != number.data() + number.size())
        return std::nullopt;
    const double cents = std::round(parsed * 100.0);
    // Beyond what 64 bits hold: as unreadable as text.
    if (!std::isfinite(cents) || std::fabs(cents) >= 9.2e18)
        return std::nullopt;
    const auto result = static_cast<qint64>(cents);
    return negative ? -result : result;
}

QifSection QifParser::sectionOf(QStringView headerLine)
{
    const QStringView line = headerLine.trimmed();
    if (line.startsWith(QLatin1String("!Type:"), Qt::CaseInsensitive)) {
        const QString name = typeName(line);
        if (name == QLatin1String("class") || name == QLatin1String("memorized") ||
            name == QLatin1String("tag") || name == QLatin1String("security") ||
            name == QLatin1String("prices"))
            return QifSection::Metadata;
        if (name == QLatin1String("cat"))
            return QifSection::Categories;
        return QifSection::Transactions;
    }
    if (line.startsWith(QLatin1String("!Option"), Qt::CaseInsensitive) ||
        line.startsWith(QLatin1String("!Clear"), Qt::CaseInsensitive))
        return QifSection::Metadata;
    if (line.startsWith(QLatin1String("!Account"), Qt::CaseInsensitive))
        return QifSection::AccountBlock;
    return QifSection::Unknown;
}

QifAccountType QifParser::accountTypeOf(QStringView headerLine)
{
    const QStringView line = headerLine.trimmed();
    if (!line.startsWith(QLatin1String("!Type:"), Qt::CaseInsensitive))
        return QifAccountType::Bank;
    const QString name = typeName(line);
    if (name == QLatin1String("ccard"))
        return QifAccountType::CreditCard;
    if (name == QLatin1String("invst"))
        return QifAccountType::Investment;
    if (name == QLatin1String("cash"))
        return QifAccountType::Cash;
    if (name == QLatin1String("oth a"))
        return QifAccountType::OtherAsset;
    if (name == QLatin1String("oth l"))
        return QifAccountType::OtherLiability;
    return QifAccountType::Bank;
}
