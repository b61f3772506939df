#pragma once

#include "scene/authoredvalue.h"

#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <zpplugin_dev_export.h>

namespace NARV::DEV {

//! Where a widget is on the page.
struct Geometry
{
    QPointF position;    //!< of the unrotated top left corner, in scene units
    QSizeF size;         //!< in scene units
    double rotation = 0; //!< degrees clockwise about the centre
};

//! A tag that can be bound to a field.
struct TagName
{
    QString name;
    INTERNAL::WidgetLibraryPluginMetaInformation::TagType type;
};

//! The widgets that the property tree shows and edits as one, counted from 0, the current one. Each
//! write is one step that can be undone where the source can.
//!
//! The id of a value is that of its field, or fontId() of a multi-language field. A value is as a
//! person gives it: of a multi-language field the texts in all languages.
class ZPPLUGIN_DEV_EXPORT PropertySource : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    //! With 0 the rest is of no meaning.
    virtual int widgetCount() const = 0;
    bool hasWidget() const { return widgetCount() > 0; }
    //! The name on the page.
    virtual QString name(int widget) const = 0;
    //! Invalid for a widget that the library does not have.
    virtual const WidgetMetaInformation &description(int widget) const = 0;
    //! Why there is no description.
    virtual QString missingReason(int widget) const = 0;
    //! The language of labels, and of the texts that the widget gets.
    virtual QString language() const = 0;
    //! Those in which a multi-language field is edited.
    virtual QStringList languages() const = 0;

    virtual QVariant value(int widget, const QString &id) const = 0;
    //! What the widget itself holds; invalid for an unknown field.
    virtual QVariant heldValue(int widget, const QString &fieldId) const = 0;
    virtual QVariant defaultValue(int widget, const QString &id) const = 0;
    virtual bool isChanged(int widget, const QString &id) const = 0;
    //! The tag or trend bound to the field; empty for none.
    virtual QString binding(int widget, const QString &fieldId) const = 0;
    virtual Geometry geometry(int widget) const = 0;
    virtual QVector<TagName> tags() const = 0;
    virtual QStringList trends() const = 0;
    //! A running generator overwrites what is written to the tag.
    virtual bool isDriven(const QString &) const { return false; }

    // One value for each widget.
    virtual void setValues(const QString &id, const QVector<QVariant> &values) = 0;
    //! An empty name unbinds.
    virtual void bind(const QString &fieldId, const QStringList &names) = 0;
    virtual void setGeometries(const QVector<Geometry> &geometries) = 0;
    //! Of all widgets.
    virtual void reset(const QStringList &ids) = 0;

Q_SIGNALS:
    //! A value or a binding of some widget is another, whoever caused it.
    void valueChanged(const QString &id);
    void geometryChanged();
    //! Other widgets, other descriptions or another language.
    void replaced();
};

} // namespace NARV::DEV

Q_DECLARE_METATYPE(NARV::DEV::Geometry)
