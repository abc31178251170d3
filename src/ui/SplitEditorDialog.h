#pragma once

#include "core/SplitLine.h"

#include <QDialog>
#include <QList>
#include <QPair>
#include <QString>

class QLabel;
class QTableWidget;

// Divides one transaction's amount among categories. It writes nothing: the caller takes lines().
class SplitEditorDialog : public QDialog {
    Q_OBJECT
public:
    // amount is the transaction's, sign included: a negative one makes the lines negative too.
    // categories are (id, label) pairs; "(none)" is put in front of them.
    SplitEditorDialog(qint64 amount, const QList<QPair<QString, QString>> &categories,
                      const QList<SplitLine> &lines, QWidget *parent = nullptr);

    // Rows whose amount rounds to zero are left out; every line gets a fresh id.
    QList<SplitLine> lines() const;

public slots:
    void addRow();
    void removeSelectedRow();
    void updateRemaining();

private:
    void setupUi();
    void fillRow(int row, const SplitLine &line);
    qint64 rowCents(int row) const;

    qint64 m_total = 0; // absolute
    bool m_negative = false;
    QList<QPair<QString, QString>> m_categories;

    QTableWidget *m_table = nullptr;
    QLabel *m_remainingLabel = nullptr;
};
