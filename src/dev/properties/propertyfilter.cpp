#include "properties/propertyfilter.h"

#include "properties/propertymodel.h"

namespace NARV::DEV {

void PropertyFilter::setShowHidden(bool show)
{
    m_showHidden = show;
    invalidateFilter();
}

void PropertyFilter::setWords(const QString &words)
{
    m_words = words.trimmed();
    invalidateFilter();
}

bool PropertyFilter::isShown(const QModelIndex &index) const
{
    return m_showHidden || !index.data(PropertyModel::HiddenRole).toBool();
}

bool PropertyFilter::matches(const QModelIndex &index) const
{
    return index.data().toString().contains(m_words, Qt::CaseInsensitive) ||
           index.data(PropertyModel::IdRole).toString().contains(m_words, Qt::CaseInsensitive);
}

// A row is there with all below it if it or one above it matches, and for the sake of one below it.
bool PropertyFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    if (!isShown(index))
        return false;
    for (QModelIndex above = index; above.isValid(); above = above.parent()) {
        if (matches(above))
            return true;
    }
    for (int i = 0; i < sourceModel()->rowCount(index); ++i) {
        const QModelIndex child = sourceModel()->index(i, 0, index);
        if (isShown(child) && matches(child))
            return true;
    }
    return false;
}

} // namespace NARV::DEV
