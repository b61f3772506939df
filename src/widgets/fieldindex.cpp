#include "fieldindex_p.h"

namespace NARV::INTERNAL {

FieldIndex::FieldIndex(const Fields &fields)
    : m_fields(fields)
{
    m_entries.reserve(fields.size());
    for (auto field = fields.cbegin(); field != fields.cend(); ++field)
        m_entries.insert(field.key(), {*field, m_entries.size()});
}

void FieldIndex::update(Pointer &index, const Fields &fields)
{
    // Copies of one map are equal at a glance, others entry by entry.
    if (!index || index->m_fields != fields)
        index = std::make_shared<const FieldIndex>(fields);
}

} // namespace NARV::INTERNAL
