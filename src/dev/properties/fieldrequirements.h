#pragma once

#include <QHash>
#include <QMap>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <zpplugin_dev_export.h>

#include <functional>

namespace NARV::DEV {

//! Shows and hides the rows of fields as the fields' requirements ask, and tells why. With several
//! widgets a row is shown if it would be for each of them.
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
        QStringList requirements; //!< of each widget
        QVector<Row *> rows;
    };
    struct Group
    {
        Row *row;
        QVector<Row *> children;
    };
    //! The current value of a field; invalid for an unknown field.
    using Reader = std::function<QVariant(int widget, const QString &fieldId)>;
    //! Why rows are hidden, or could not be judged, in words.
    struct Reason
    {
        QString text; //!< empty if they are shown
        int widget = 0;
    };

    FieldRequirements() = default;
    FieldRequirements(const QMap<QString, Field> &fieldsById,
                      const QMap<QString, Group> &groupsByName);

    //! Evaluates all requirements with the values as they are. A malformed one is logged and leaves
    //! the rows of its field as they were.
    void update(const Reader &value);
    //! Of the rows of the field; the first of the widgets that has one.
    Reason reason(const QString &fieldId) const { return m_reasons.value(fieldId); }

private:
    void update(const QString &fieldId, const Field &field, const Reader &value);

    QMap<QString, Field> m_fields;
    QMap<QString, Group> m_groups;
    QHash<QString, Reason> m_reasons;
};

} // namespace NARV::DEV
