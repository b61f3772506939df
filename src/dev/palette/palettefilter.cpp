#include "palette/palettefilter.h"

#include "palette/palettemodel.h"

#include <algorithm>

namespace NARV::DEV {

PaletteFilter::PaletteFilter(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setRecursiveFilteringEnabled(true);
}

void PaletteFilter::setWords(const QString &words)
{
    m_words = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

bool PaletteFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QVariant known = sourceModel()->index(row, 0, parent).data(PaletteModel::WordsRole);
    const QString text = known.toString();
    return known.isValid() &&
           std::all_of(m_words.cbegin(), m_words.cend(), [&](const QString &word) {
               return text.contains(word, Qt::CaseInsensitive);
           });
}

} // namespace NARV::DEV
