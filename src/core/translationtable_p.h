#pragma once

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QHash>
#include <QVector>

namespace NARV::INTERNAL {

//! Translatable texts in order, found by their text in one language and their comment.
//!
//! Where several entries have the same text and comment, the first one is found.
class TranslationTable
{
public:
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    explicit TranslationTable(const QString &languageCode,
                              const QList<TranslationStringType> &entries = {});

    bool isEmpty() const { return m_entries.isEmpty(); }
    const QList<TranslationStringType> &entries() const { return m_entries; }
    //! The entry with that text and comment, or null. Valid until the table changes.
    const TranslationStringType *find(const QString &text, const QString &comment) const;
    //! Adds an entry of one text in the table's language unless there is one already.
    void add(const QString &text, const QString &comment);

    //! Merges the rows of a translation file (see PluginUtils::importTranslationFile). On false
    //! nothing has changed.
    bool importFile(const QString &filePath, const QString &languageCode, bool addMissing);

private:
    class Import;
    using Key = QPair<QString, QString>;

    int indexOf(const QString &text, const QString &comment) const
    {
        return m_firstIndex.value({text, comment}, -1);
    }
    void reindex();

    QString m_languageCode;
    QList<TranslationStringType> m_entries;
    QHash<Key, int> m_firstIndex;
};

} // namespace NARV::INTERNAL
