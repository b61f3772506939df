#pragma once

#include <QHash>
#include <QMap>
#include <QString>
#include <QVariant>
#include <QVector>

#include <zpplugin_dev_export.h>

#include <functional>

namespace NARV::DEV {

//! Shows and hides the rows of a widget's fields as the fields' requirements ask, and tells why.
class ZPPLUGIN_DEV_EXPORT FieldRequirements
{
public:
    //! A row of the property tree. Rows belong to the tree and outlive their use here.
    struct Row
    {
        bool isHidden = false;
    };
    struct Field
    {
        QString requirements;
        QVector<Row *> rows;
    };
    struct Group
    {
        Row *row;
        QVector<Row *> children;
    };
    //! The current value of a field; invalid for an unknown field or without a widget.
    using Reader = std::function<QVariant(const QString &fieldId)>;

    FieldRequirements() = default;
    FieldRequirements(const QMap<QString, Field> &fieldsById,
                      const QMap<QString, Group> &groupsByName);

    //! Evaluates all requirements with the values as they are. A malformed one is logged and leaves
    //! the rows of its field as they were.
    void update(const Reader &value);
    //! Why the rows of the field are hidden, or could not be judged, in words; empty if they are
    //! shown.
    QString reason(const QString &fieldId) const { return m_reasons.value(fieldId); }

private:
    void update(const QString &fieldId, const Field &field, const Reader &value);

    QMap<QString, Field> m_fields;
    QMap<QString, Group> m_groups;
    QHash<QString, QString> m_reasons;
};

} // namespace NARV::DEV
