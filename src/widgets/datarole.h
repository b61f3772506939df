#pragma once

#include <zpplugin_export.h>

#include <QObject>
#include <QScopedPointer>

class QDebug;

namespace NARV {

class DataRolePrivate;
class IconDataRolePrivate;

//! A piece of data that is asked of a widget or a graphics object.
class ZPPLUGIN_EXPORT DataRole
{
    Q_GADGET

public:
    enum Type : quint16
    {
        Icon = 1 //!< the icon of the widget: QIcon
    };
    Q_ENUM(Type)

    explicit DataRole(Type type);
    virtual ~DataRole();

    Type type() const;

private:
    Q_DISABLE_COPY(DataRole)
    const QScopedPointer<const DataRolePrivate> d_ptr;
};

class ZPPLUGIN_EXPORT IconDataRole : public DataRole
{
public:
    IconDataRole();
    ~IconDataRole() override;

private:
    const QScopedPointer<const IconDataRolePrivate> d_ptr;
};

ZPPLUGIN_EXPORT QDebug operator<<(QDebug debug, const IconDataRole *role);

} // namespace NARV
