#pragma once

#include <NARV/WidgetData>

#include <QHash>

#include <memory>

namespace NARV::INTERNAL {

//! Finds the entries of a field description map by hash. Shared by the widgets of a description.
class FieldIndex
{
public:
    using Fields = QMap<QString, WidgetData::FieldInfo>;
    using Pointer = std::shared_ptr<const FieldIndex>;

    struct Entry
    {
        WidgetData::FieldInfo info;
        int position; // in the order of ids
    };

    explicit FieldIndex(const Fields &fields);

    //! Makes the index one of these fields, unless it is that already.
    static void update(Pointer &index, const Fields &fields);

    const Fields &fields() const { return m_fields; }
    //! Null for an unknown id.
    const Entry *find(const QString &fieldId) const
    {
        const auto found = m_entries.constFind(fieldId);
        return found == m_entries.constEnd() ? nullptr : &*found;
    }

private:
    const Fields m_fields;
    QHash<QString, Entry> m_entries;
};

} // namespace NARV::INTERNAL
