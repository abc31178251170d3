#pragma once

#include "core/Category.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

// The form for a new category, a new subcategory under a given parent, or an edit. It writes nothing:
// the caller stores category().
class CategoryFormDialog : public QDialog {
    Q_OBJECT
public:
    explicit CategoryFormDialog(QWidget *parent = nullptr);
    CategoryFormDialog(const QString &parentId, const QString &parentName, QWidget *parent = nullptr);
    explicit CategoryFormDialog(const Category &category, QWidget *parent = nullptr);

    Category category() const;

private:
    void setupUi(const QString &parentName);
    void fill(const Category &category);
    void onTaxRelevantToggled(bool on);

    Category m_original;
    bool m_editMode = false;

    QLineEdit *m_nameEdit = nullptr;
    QComboBox *m_typeCombo = nullptr;
    QCheckBox *m_taxCheck = nullptr;
    QLabel *m_taxCodeLabel = nullptr;
    QLineEdit *m_taxCodeEdit = nullptr;
};
