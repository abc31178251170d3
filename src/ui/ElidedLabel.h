#pragma once

#include <QLabel>
#include <QString>

// A label that cuts its text at the right with an ellipsis to fit its width, so that a long name never
// widens the panel it stands in.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget *parent = nullptr);
    explicit ElidedLabel(const QString &text, QWidget *parent = nullptr);

    void setFullText(const QString &text);
    QString fullText() const { return m_fullText; }
    // What paintEvent draws at the current width.
    QString elidedText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QString m_fullText;
};
