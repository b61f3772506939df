#pragma once

#include <QString>
#include <QVector>

namespace NARV::INTERNAL {

//! Numbers by pairs of text and comment: a hash table without a node per entry, for which reading
//! translation files would spend more time than on anything else.
class TextIndex
{
public:
    TextIndex();

    //! The number of a pair; -1 if it has none.
    int find(const QString &text, const QString &comment) const;
    //! The number of a pair, to be set; -1 at first. Valid until the next call.
    int &insert(const QString &text, const QString &comment);
    void reserve(int size);
    void clear();

private:
    struct Entry
    {
        QString text;
        QString comment;
        uint hash;
        int number;
    };

    uint hashOf(const QString &text, const QString &comment) const;
    //! The place of the pair, or the free one where it belongs.
    int slotOf(uint hash, const QString &text, const QString &comment) const;
    void rehash(int slotCount);

    quint64 m_keys[2]; //!< random, so that nobody can choose texts that collide
    QVector<Entry> m_entries;
    QVector<int> m_slots; //!< positions in m_entries or -1; a power of two, at most half in use
};

} // namespace NARV::INTERNAL
