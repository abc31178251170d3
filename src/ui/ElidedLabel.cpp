#include "ui/ElidedLabel.h"

#include <QFontMetrics>
#include <QPainter>

ElidedLabel::ElidedLabel(QWidget *parent)
    : ElidedLabel(QString(), parent)
{
}

ElidedLabel::ElidedLabel(const QString &text, QWidget *parent)
    : QLabel(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setFullText(text);
}

void ElidedLabel::setFullText(const QString &text)
{
    m_fullText = text;
    setText(text);
    update();
}

QString ElidedLabel::elidedText() const
{
    const QString elided = fontMetrics().elidedText(m_fullText, Qt::ElideRight, contentsRect().width());
    // Qt gives nothing at all below the width of the ellipsis; the ellipsis still says a name is there.
    if (elided.isEmpty() && !m_fullText.isEmpty())
        return QString(QChar(0x2026));
    return elided;
}

QSize ElidedLabel::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return QSize(metrics.horizontalAdvance(m_fullText), metrics.height());
}

QSize ElidedLabel::minimumSizeHint() const
{
    return QSize(0, fontMetrics().height());
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawText(contentsRect(), int(alignment()), elidedText());
}

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    update();
}
