#include "core/translationtable_p.h"

#include "core/translationfile_p.h"

namespace NARV::INTERNAL {

TranslationTable::TranslationTable(const QString &languageCode,
                                   QList<TranslationStringType> entries)
    : m_languageCode(languageCode)
    , m_entries(std::move(entries))
{
    reindex();
}

QList<PluginMetaInformation::TranslationStringType> TranslationTable::takeEntries()
{
    m_first.clear();
    m_nextSame.clear();
    return std::move(m_entries);
}

void TranslationTable::reindex()
{
    m_first.clear();
    m_first.reserve(m_entries.size());
    m_nextSame.fill(-1, m_entries.size());
    for (int i = m_entries.size() - 1; i >= 0; --i) {
        const TranslationStringType &entry = m_entries.at(i);
        int &first = m_first.insert(entry.get(m_languageCode, false), entry.comment());
        m_nextSame[i] = first;
        first = i;
    }
}

const PluginMetaInformation::TranslationStringType *
TranslationTable::find(const QString &text, const QString &comment) const
{
    const int index = m_first.find(text, comment);
    return index < 0 ? nullptr : &m_entries.at(index);
}

void TranslationTable::add(const QString &text, const QString &comment)
{
    int &first = m_first.insert(text, comment);
    if (first >= 0)
        return;
    first = m_entries.size();
    m_nextSame.append(-1);
    m_entries.append(TranslationStringType(m_languageCode, text, comment));
}

bool TranslationTable::importFile(const QString &filePath, const QString &languageCode,
                                  bool addMissing)
{
    TranslationFile file(filePath);
    if (!file.isOpen())
        return false;
    const int oldSize = m_entries.size();
    QVector<Change> changes;
    while (file.nextLine()) {
        const TranslationFile::Fields fields = file.fields();
        if (fields.count == 3 && importRow({fields.text(0), fields.text(1), fields.text(2)},
                                           languageCode, addMissing, changes)) {
            continue;
        }
        undo(changes, oldSize, languageCode);
        return false;
    }
    return true;
}

bool TranslationTable::importRow(const Row &row, const QString &languageCode, bool addMissing,
                                 QVector<Change> &changes)
{
    if (!addMissing) {
        const int found = m_first.find(row.source, row.comment);
        return found < 0 || translate(found, row, languageCode, changes);
    }
    int &first = m_first.insert(row.source, row.comment);
    if (first >= 0)
        return translate(first, row, languageCode, changes);
    first = m_entries.size();
    append(row, languageCode);
    return true;
}

bool TranslationTable::translate(int index, const Row &row, const QString &languageCode,
                                 QVector<Change> &changes)
{
    const TranslationStringType &entry = m_entries.at(index);
    const QString text = entry.get(languageCode, false);
    if (!text.isEmpty())
        return text == row.translation;
    changes.append({index, entry.contains(languageCode), text});
    m_entries[index].set(languageCode, row.translation);
    if (languageCode == m_languageCode && !row.translation.isEmpty())
        rekey(index, row);
    return true;
}

void TranslationTable::append(const Row &row, const QString &languageCode)
{
    TranslationStringType entry(m_languageCode, row.source, row.comment);
    if (languageCode != m_languageCode)
        entry.set(languageCode, row.translation);
    m_nextSame.append(-1);
    m_entries.append(std::move(entry));
}

// An entry whose own text was empty has got one. Entries with a text never change it again, so of
// two with the same key only the first one matters from now on.
void TranslationTable::rekey(int index, const Row &row)
{
    m_first.insert(row.source, row.comment) = m_nextSame.at(index);
    int &first = m_first.insert(row.translation, row.comment);
    first = first < 0 ? index : qMin(first, index);
}

void TranslationTable::undo(const QVector<Change> &changes, int oldSize,
                            const QString &languageCode)
{
    m_entries.erase(m_entries.begin() + oldSize, m_entries.end());
    for (auto change = changes.crbegin(); change != changes.crend(); ++change) {
        if (change->index >= oldSize)
            continue;
        if (change->existed)
            m_entries[change->index].set(languageCode, change->text);
        else
            m_entries[change->index].remove(languageCode);
    }
    reindex();
}

} // namespace NARV::INTERNAL
