#pragma once

#include "properties/propertyeditor.h"

#include <QSortFilterProxyModel>
#include <QStandardItemModel>

class QLineEdit;
class QListView;

namespace NARV::DEV {

//! A tag or a trend out of those of the kind, or none; typing filters the list by name and type.
class ReferenceEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit ReferenceEditor(QWidget *parent);

    void setKind(const ValueKind &kind) override;
    QVariant value() const override;
    void setValue(const QVariant &value) override;
    QString problem() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addRow(const QString &text, const QString &name);
    void filter(const QString &words);
    void selectName(const QString &name);

    QLineEdit *m_filter;
    QListView *m_list;
    QStandardItemModel m_names;
    QSortFilterProxyModel m_matches;
};

} // namespace NARV::DEV
