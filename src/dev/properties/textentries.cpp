#include "properties/textentries.h"

#include "scene/authoredvalue.h"

#include <algorithm>

namespace NARV::DEV {

using Text = INTERNAL::PluginMetaInformation::TranslationStringType;
using Texts = QList<Text>;
using TextMap = QMap<int, Text>;
using StringMap = QMap<int, QString>;

template<class Container>
static bool holds(const QVariant &value)
{
    return value.userType() == qMetaTypeId<Container>();
}

template<class List>
static TextEntries entriesOfList(const QVariant &value)
{
    TextEntries entries;
    for (const auto &text : value.value<List>())
        entries.append({entries.size(), QVariant::fromValue(text)});
    return entries;
}

template<class Map>
static TextEntries entriesOfMap(const QVariant &value)
{
    TextEntries entries;
    const auto map = value.value<Map>();
    for (auto it = map.begin(); it != map.end(); ++it)
        entries.append({it.key(), QVariant::fromValue(*it)});
    return entries;
}

template<class List>
static QVariant listOfEntries(const TextEntries &entries)
{
    List list;
    for (const TextEntry &entry : entries)
        list.append(entry.text.value<typename List::value_type>());
    return QVariant::fromValue(list);
}

template<class Map>
static QVariant mapOfEntries(const TextEntries &entries)
{
    Map map;
    for (const TextEntry &entry : entries)
        map.insert(entry.key, entry.text.value<typename Map::mapped_type>());
    return QVariant::fromValue(map);
}

namespace {

struct Form
{
    bool (*isHeldBy)(const QVariant &value);
    bool isMap;
    TextEntries (*read)(const QVariant &value);
    QVariant (*write)(const TextEntries &entries);
    QVariant emptyText;
};

} // namespace

static const Form *formOf(const QVariant &value)
{
    static const Form forms[] = {
        {holds<QStringList>, false, entriesOfList<QStringList>, listOfEntries<QStringList>,
         QString()},
        {holds<Texts>, false, entriesOfList<Texts>, listOfEntries<Texts>,
         QVariant::fromValue(Text())},
        {holds<StringMap>, true, entriesOfMap<StringMap>, mapOfEntries<StringMap>, QString()},
        {holds<TextMap>, true, entriesOfMap<TextMap>, mapOfEntries<TextMap>,
         QVariant::fromValue(Text())},
    };
    const auto *form = std::find_if(std::begin(forms), std::end(forms),
                                    [&value](const Form &f) { return f.isHeldBy(value); });
    return form == std::end(forms) ? nullptr : form;
}

bool isTextMap(const QVariant &value)
{
    const Form *form = formOf(value);
    return form && form->isMap;
}

bool hasTextEntries(const QVariant &value)
{
    return formOf(value) != nullptr;
}

TextEntries textEntries(const QVariant &value)
{
    const Form *form = formOf(value);
    return form ? form->read(value) : TextEntries();
}

QVariant withTextEntries(const QVariant &like, const TextEntries &entries)
{
    const Form *form = formOf(like);
    return form ? form->write(entries) : like;
}

//! The first free key behind that of the entry in front of the position.
static int freeKey(const TextEntries &entries, int position)
{
    const auto isTaken = [&entries](int key) {
        return std::any_of(entries.begin(), entries.end(),
                           [key](const TextEntry &entry) { return entry.key == key; });
    };
    int key = position > 0 ? entries[position - 1].key + 1 : 0;
    while (isTaken(key))
        ++key;
    return key;
}

QVariant withEntryAdded(const QVariant &value, int position)
{
    const Form *form = formOf(value);
    if (!form)
        return value;
    TextEntries entries = form->read(value);
    position = qBound(0, position, entries.size());
    entries.insert(position, {freeKey(entries, position), form->emptyText});
    return form->write(entries);
}

QVariant withEntryRemoved(const QVariant &value, int position)
{
    TextEntries entries = textEntries(value);
    if (position >= 0 && position < entries.size())
        entries.removeAt(position);
    return withTextEntries(value, entries);
}

QVariant withEntryMoved(const QVariant &value, int from, int to)
{
    TextEntries entries = textEntries(value);
    const auto isInside = [&entries](int i) { return i >= 0 && i < entries.size(); };
    if (isInside(from) && isInside(to))
        std::swap(entries[from].text, entries[to].text);
    return withTextEntries(value, entries);
}

QVariant withEditedList(const QVariant &authored, const QStringList &edited,
                        const QString &languageCode)
{
    if (!holds<Texts>(authored))
        return edited;
    Texts left = authored.value<Texts>();
    Texts result;
    QVector<int> others; // positions of texts that were not there before
    for (const QString &text : edited) {
        const auto same = std::find_if(left.begin(), left.end(), [&](const Text &candidate) {
            return candidate.get(languageCode, true) == text;
        });
        if (same == left.end())
            others += result.size();
        result += same == left.end() ? Text() : *same;
        if (same != left.end())
            left.erase(same);
    }
    for (const int position : qAsConst(others)) {
        if (!left.isEmpty())
            result[position] = left.takeFirst();
        result[position].set(languageCode, edited[position]);
    }
    return QVariant::fromValue(result);
}

} // namespace NARV::DEV
