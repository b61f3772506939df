#pragma once

#include <QSortFilterProxyModel>

namespace NARV::DEV {

//! The widgets of the palette that have all of the words in what is known of them, and the
//! galleries and groups that these are in.
class PaletteFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit PaletteFilter(QObject *parent = nullptr);

    void setWords(const QString &words);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QStringList m_words;
};

} // namespace NARV::DEV
