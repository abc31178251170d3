#include "ui/register/SmartAmountField.h"

#include "core/Money.h"

#include <QKeyEvent>
#include <QLineEdit>

SmartAmountField::SmartAmountField(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    // Amounts print and read in one fixed form whatever the user's locale, as formatAmount does; the
    // widget's own locale must agree, or "1.234,50" would be shown and then misread.
    setLocale(QLocale::c());
    setDecimals(2);
    setRange(-99999999.99, 99999999.99);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

QString SmartAmountField::amountText(const QString &text) const
{
    QString t = text;
    if (!prefix().isEmpty() && t.startsWith(prefix()))
        t.remove(0, prefix().size());
    if (!suffix().isEmpty() && t.endsWith(suffix()))
        t.chop(suffix().size());
    return t.trimmed();
}

QValidator::State SmartAmountField::validate(QString &input, int &pos) const
{
    Q_UNUSED(pos);
    const QString t = amountText(input);
    const QString symbol = currencySymbol(Currency::USD);
    int digits = 0;
    int points = 0;
    int fraction = 0;
    for (const QChar c : t) {
        if (c.isDigit()) {
            ++digits;
            if (points > 0)
                ++fraction;
        } else if (c == QLatin1Char('.')) {
            ++points;
        } else if (c != QLatin1Char(',') && c != QLatin1Char('-') && c != QLatin1Char(' ') &&
                   !symbol.contains(c)) {
            return QValidator::Invalid;
        }
    }
    if (points > 1 || fraction > decimals())
        return QValidator::Invalid;
    if (t.count(QLatin1Char('-')) > 1)
        return QValidator::Invalid;
    if (digits == 0)
        return QValidator::Intermediate;
    // parseAmount gives 0 for what it cannot read; only text of zeros may honestly mean zero.
    const qint64 cents = parseAmount(t, Currency::USD);
    if (cents == 0) {
        for (const QChar c : t) {
            if (c.isDigit() && c != QLatin1Char('0'))
                return QValidator::Intermediate;
        }
    }
    const double amount = cents / 100.0;
    if (amount < minimum() || amount > maximum())
        return QValidator::Invalid;
    return QValidator::Acceptable;
}

double SmartAmountField::valueFromText(const QString &text) const
{
    return parseAmount(amountText(text), Currency::USD) / 100.0;
}

void SmartAmountField::keyPressEvent(QKeyEvent *event)
{
    if (!event->text().isEmpty()) {
        const QChar typed = event->text().at(0);
        const QString localePoint = locale().decimalPoint();
        const QChar point = localePoint.isEmpty() ? QLatin1Char('.') : localePoint.at(0);
        QLineEdit *edit = lineEdit();
        const int at = edit->text().indexOf(point);
        if ((typed == point || typed == QLatin1Char(',') || typed == QLatin1Char('.')) && at >= 0) {
            edit->deselect();
            edit->setCursorPosition(at + 1);
            event->accept();
            return;
        }
    }
    QDoubleSpinBox::keyPressEvent(event);
}
