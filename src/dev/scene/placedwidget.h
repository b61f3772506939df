#pragma once

#include "scene/widgetstate.h"

#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>

#include <QObject>
#include <QPointer>

#include <zpplugin_dev_export.h>

#include <memory>

namespace NARV {
class GraphicsObject;
class Widget;
class WidgetLibraryPlugin;
class WidgetPrivate;
} // namespace NARV

namespace NARV::INTERNAL {
class WidgetActionManagerImpl;
}

namespace NARV::DEV {

//! One widget on the page: what a person has set, which outlives a reload of the library, and the
//! instance that runs, if the library has such a widget.
class ZPPLUGIN_DEV_EXPORT PlacedWidget : public QObject
{
    Q_OBJECT

public:
    using FieldMetaInformation = INTERNAL::WidgetLibraryPluginMetaInformation::FieldMetaInformation;
    using WidgetMetaInformation =
        INTERNAL::WidgetLibraryPluginMetaInformation::WidgetMetaInformation;

    explicit PlacedWidget(const WidgetState &state, QObject *parent = nullptr);
    ~PlacedWidget() override;

    const WidgetState &state() const { return m_state; }
    const QString &name() const { return m_state.name; }

    //! The description of the widget; invalid for one that the library does not have, of which only
    //! the state is kept.
    const WidgetMetaInformation &description() const { return m_description; }
    //! The running instance and its item; null for a widget that could not be made.
    NARV::WidgetPrivate *widget() const;
    NARV::GraphicsObject *item() const { return m_item; }

    //! The value that a property editor shows: for a multi-language field its texts in all
    //! languages (TranslationStringType, QList or QMap<int> of it), otherwise what the widget holds.
    //! The font of a multi-language field goes by its id followed by ".font".
    QVariant fieldValue(const QString &fieldId) const;
    //! What the description says it is at first.
    QVariant defaultValue(const QString &fieldId) const;
    //! A person or the widget itself has given it another value than the default.
    bool isFieldChanged(const QString &fieldId) const;
    //! The tag or trend bound to the field; empty for none.
    QString binding(const QString &fieldId) const { return m_state.bindings.value(fieldId); }

Q_SIGNALS:
    //! A field has another value or binding, whoever caused it.
    void fieldChanged(const QString &fieldId);
    //! Name, position, size or rotation are others.
    void geometryChanged();
    //! The instance was made or is gone: everything else may be another.
    void instanceChanged();

private:
    friend class SceneDocument;

    WidgetState m_state;
    WidgetMetaInformation m_description;
    std::unique_ptr<NARV::Widget> m_widget;
    QPointer<NARV::GraphicsObject> m_item;
};

} // namespace NARV::DEV
