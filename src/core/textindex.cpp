#include "core/textindex_p.h"

#include <QRandomGenerator>
#include <QtMath>

#include <cstring>

namespace NARV::INTERNAL {

static constexpr int smallestSlotCount = 16;

TextIndex::TextIndex()
    : m_keys{QRandomGenerator::global()->generate64(), QRandomGenerator::global()->generate64()}
{
}

// Multiplies the halves of what an unknown key has mixed: without the key nobody can tell which
// texts come out alike. A product of text and key alone would have texts that collide with any key.
static quint64 mixed(quint64 hash, quint64 letters, quint64 key)
{
    const quint64 x = hash ^ letters ^ key;
    return (x & 0xffffffff) * (x >> 32) + (x << 32 | x >> 32);
}

static quint64 hashed(const QString &text, quint64 hash, const quint64 (&keys)[2])
{
    static constexpr int letters = sizeof(quint64) / sizeof(QChar);
    const auto wordAt = [](const QChar *begin, int size) {
        quint64 word = 0;
        std::memcpy(&word, begin, size_t(size) * sizeof(QChar));
        return word;
    };
    const QChar *begin = text.constData();
    int rest = text.size();
    hash += quint64(rest);
    quint64 second = 0; // mixed at the same time as the first
    for (; rest >= 2 * letters; rest -= 2 * letters, begin += 2 * letters) {
        hash = mixed(hash, wordAt(begin, letters), keys[0]);
        second = mixed(second, wordAt(begin + letters, letters), keys[1]);
    }
    if (rest >= letters) {
        hash = mixed(hash, wordAt(begin, letters), keys[0]);
        rest -= letters;
        begin += letters;
    }
    return mixed(mixed(hash, second, keys[0]), wordAt(begin, rest), keys[1]);
}

// The toolkit's hash of a text is a checksum on most machines: texts made to have the same one have
// it with any seed.
uint TextIndex::hashOf(const QString &text, const QString &comment) const
{
    return uint(hashed(text, hashed(comment, 0, m_keys), m_keys) >> 32);
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
