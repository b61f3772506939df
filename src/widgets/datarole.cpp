#include "datarole.h"

#include <QDebug>

namespace NARV {

class DataRolePrivate
{
public:
    quint16 type;
};

// Empty: room for state without a change of the size of IconDataRole.
class IconDataRolePrivate
{
};

DataRole::DataRole(Type type)
    : d_ptr(new DataRolePrivate{type})
{
}

DataRole::~DataRole() = default;

DataRole::Type DataRole::type() const
{
    return Type(d_ptr->type);
}

IconDataRole::IconDataRole()
    : DataRole(Icon)
    , d_ptr(new IconDataRolePrivate)
{
}

IconDataRole::~IconDataRole() = default;

QDebug operator<<(QDebug debug, const IconDataRole *)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "NARV::IconDataRole()";
    return debug;
}

} // namespace NARV
