#pragma once

#include <QVariant>
#include <QVector>

#include <zpplugin_dev_export.h>

//! Lists and maps of texts, plain or in several languages, seen as entries in order.
namespace NARV::DEV {

struct TextEntry
{
    int key;       //!< of a map; the position in a list
    QVariant text; //!< a QString, or a TranslationStringType
};
using TextEntries = QVector<TextEntry>;

bool isTextMap(const QVariant &value);
//! The value is a list or a map of texts.
bool hasTextEntries(const QVariant &value);
TextEntries textEntries(const QVariant &value);
//! The entries as a value of the type of another; of entries with the same key the last counts.
QVariant withTextEntries(const QVariant &like, const TextEntries &entries);
//! An empty entry at the position, under a key that is free.
QVariant withEntryAdded(const QVariant &value, int position);
QVariant withEntryRemoved(const QVariant &value, int position);
//! In a map the texts change places, the keys stay.
QVariant withEntryMoved(const QVariant &value, int from, int to);

//! The list of authored texts after the list in that language was edited: a text that is still
//! there takes its other languages along, also to another position.
ZPPLUGIN_DEV_EXPORT QVariant withEditedList(const QVariant &authored, const QStringList &edited,
                                            const QString &languageCode);

} // namespace NARV::DEV
