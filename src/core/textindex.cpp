#include "core/textindex_p.h"

#include <QRandomGenerator>
#include <QtMath>

namespace NARV::INTERNAL {

static constexpr int smallestSlotCount = 16;

TextIndex::TextIndex()
    : m_key(QRandomGenerator::global()->generate64() | 1u)
{
}

// Two characters at a time: half as many multiplications, each of which waits for the last.
static quint64 hashed(const QString &text, quint64 hash, quint64 key)
{
    const QChar *c = text.constData();
    const QChar *const end = c + text.size();
    for (; end - c >= 2; c += 2)
        hash = (hash + (quint32(c[1].unicode()) << 16 | c[0].unicode())) * key;
    return c == end ? hash : (hash + c->unicode()) * key;
}

// The toolkit's hash of a text is a checksum on most machines: texts made to have the same one have
// it with any seed.
uint TextIndex::hashOf(const QString &text, const QString &comment) const
{
    static constexpr quint64 separator = quint64(1) << 32; // no characters
    return uint(hashed(text, hashed(comment, 1, m_key) + separator, m_key) >> 32);
}

int TextIndex::slotOf(uint hash, const QString &text, const QString &comment) const
{
    const uint mask = uint(m_slots.size()) - 1;
    for (uint slot = hash & mask;; slot = (slot + 1) & mask) {
        const int position = m_slots.at(int(slot));
        if (position < 0)
            return int(slot);
        const Entry &entry = m_entries.at(position);
        if (entry.hash == hash && entry.text == text && entry.comment == comment)
            return int(slot);
    }
}

int TextIndex::find(const QString &text, const QString &comment) const
{
    if (m_entries.isEmpty())
        return -1;
    const int position = m_slots.at(slotOf(hashOf(text, comment), text, comment));
    return position < 0 ? -1 : m_entries.at(position).number;
}

int &TextIndex::insert(const QString &text, const QString &comment)
{
    reserve(m_entries.size() + 1);
    const uint hash = hashOf(text, comment);
    int &position = m_slots[slotOf(hash, text, comment)];
    if (position < 0) {
        position = m_entries.size();
        m_entries.append({text, comment, hash, -1});
    }
    return m_entries[position].number;
}

void TextIndex::reserve(int size)
{
    if (2 * size > m_slots.size())
        rehash(qMax(smallestSlotCount, int(qNextPowerOfTwo(uint(2 * size)))));
}

void TextIndex::rehash(int slotCount)
{
    m_slots.fill(-1, slotCount);
    const uint mask = uint(slotCount) - 1;
    for (int position = 0; position < m_entries.size(); ++position) {
        uint slot = m_entries.at(position).hash & mask;
        while (m_slots.at(int(slot)) >= 0)
            slot = (slot + 1) & mask;
        m_slots[int(slot)] = position;
    }
}

void TextIndex::clear()
{
    m_entries.clear();
    m_slots.clear();
}

} // namespace NARV::INTERNAL
