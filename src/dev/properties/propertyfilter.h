#pragma once

#include <QSortFilterProxyModel>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! The rows of a PropertyModel whose requirements are met, or all; of these those that match what
//! a person searches for by name, id or group.
class ZPPLUGIN_DEV_EXPORT PropertyFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    bool showHidden() const { return m_showHidden; }
    void setShowHidden(bool show);
    void setWords(const QString &words);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    bool matches(const QModelIndex &index) const;
    bool isShown(const QModelIndex &index) const;

    bool m_showHidden = false;
    QString m_words;
};

} // namespace NARV::DEV
