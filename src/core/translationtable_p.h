#pragma once

#include "core/textindex_p.h"

#include <NARV/INTERNAL/PluginMetaInformation>

#include <QVector>

namespace NARV::INTERNAL {

//! Translatable texts in order, found by their text in one language and their comment.
//!
//! Where several entries have the same text and comment, the first one is found.
class ZPPLUGIN_EXPORT TranslationTable
{
public:
    using TranslationStringType = PluginMetaInformation::TranslationStringType;

    explicit TranslationTable(const QString &languageCode = {},
                              QList<TranslationStringType> entries = {});

    const QString &languageCode() const { return m_languageCode; }
    //! Takes the entries out of the table, which is then empty.
    QList<TranslationStringType> takeEntries();

    //! The entry with that text and comment, or null. Valid until the table changes.
    const TranslationStringType *find(const QString &text, const QString &comment) const;
    //! Adds an entry of one text in the table's language unless there is one already.
    void add(const QString &text, const QString &comment);

    //! Merges the rows of a translation file (see PluginUtils::importTranslationFile). On false
    //! nothing has changed.
    bool importFile(const QString &filePath, const QString &languageCode, bool addMissing);

private:
    //! What a text was before a row set it, to undo an import that fails later.
    struct Change
    {
        int index;
        bool existed;
        QString text;
    };

    struct Row
    {
        QString source;
        QString comment;
        QString translation;
    };

    bool importRow(const Row &row, const QString &languageCode, bool addMissing,
                   QVector<Change> &changes);
    bool translate(int index, const Row &row, const QString &languageCode,
                   QVector<Change> &changes);
    void append(const Row &row, const QString &languageCode);
    void rekey(int index, const Row &row);
    void undo(const QVector<Change> &changes, int oldSize, const QString &languageCode);
    void reindex();

    QString m_languageCode;
    QList<TranslationStringType> m_entries;
    TextIndex m_first;       //!< the first entry with a text and comment
    QVector<int> m_nextSame; //!< behind each entry the next one with the same two, or -1
};

} // namespace NARV::INTERNAL
