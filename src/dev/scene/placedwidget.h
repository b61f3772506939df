#pragma once

#include "scene/authoredvalue.h"
#include "scene/widgetstate.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QGraphicsObject;
class QGraphicsScene;

namespace NARV {
class AlarmInfo;
class GraphicsObject;
class Widget;
class WidgetLibraryPlugin;
class WidgetPrivate;
} // namespace NARV

namespace NARV::INTERNAL {
class WidgetActionManagerImpl;
}

namespace NARV::DEV {

class PlaceholderItem;
class TestData;

//! Where instances of widgets come from and what they live in.
struct WidgetHost
{
    const INTERNAL::WidgetLibraryPluginMetaInformation *library = nullptr; //!< null for no plugin
    NARV::WidgetLibraryPlugin *plugin = nullptr;
    INTERNAL::WidgetActionManagerImpl *actionManager = nullptr;
    TestData *data = nullptr;
    QGraphicsScene *scene = nullptr;
    QString language;
};

//! One widget on the page: what a person has set, which outlives a reload of the library, and the
//! instance that runs, if the library has such a widget.
class ZPPLUGIN_DEV_EXPORT PlacedWidget : public QObject
{
    Q_OBJECT

public:
    using FieldMetaInformation = NARV::DEV::FieldMetaInformation;
    using WidgetMetaInformation = NARV::DEV::WidgetMetaInformation;

    explicit PlacedWidget(const WidgetState &state, QObject *parent = nullptr);
    ~PlacedWidget() override;

    const WidgetState &state() const { return m_state; }
    const QString &name() const { return m_state.name; }

    //! The description of the widget; invalid for one that the library does not have, of which only
    //! the state is kept.
    const WidgetMetaInformation &description() const { return m_description; }
    //! Why there is no instance.
    QString missingReason() const;
    //! What a person calls it: the name, with the widget's display name in place of its id.
    QString title() const;
    //! What a person calls a field or its font; the id for one that the library does not have.
    QString fieldTitle(const QString &fieldId) const;
    //! The description of a field, or of the field that such a font belongs to.
    FieldMetaInformation field(const QString &fieldId) const;
    //! The running instance and its item; null for a widget that could not be made.
    NARV::WidgetPrivate *widget() const;
    NARV::GraphicsObject *item() const;
    //! The item, or what stands in its place; null only if the widget's code has deleted it.
    QGraphicsObject *shownItem() const;

    //! The value that a property editor shows: for a multi-language field its texts in all
    //! languages (TranslationStringType, QList or QMap<int> of it), otherwise what the widget
    //! holds. The font of a multi-language field goes by its id followed by ".font".
    QVariant fieldValue(const QString &fieldId) const;
    //! What the description says it is at first.
    QVariant defaultValue(const QString &fieldId) const;
    //! A person or the widget itself has given it another value than the default.
    bool isFieldChanged(const QString &fieldId) const;
    //! The value as fieldValue() would give it, converted and within the field's bounds; a plain
    //! text, list or map stands for the present language. False if the field does not take it.
    bool toFieldValue(const QString &fieldId, const QVariant &value, QVariant &authored) const;
    //! A tag or trend can be bound to the field.
    bool canBeBound(const QString &fieldId) const;
    //! The tag or trend bound to the field; empty for none.
    QString binding(const QString &fieldId) const { return m_state.bindings.value(fieldId); }

    //! Makes the instance and says what of the state the library no longer has a place for.
    QStringList make(const WidgetHost &host);
    //! Deletes the instance; the state stays.
    void unmake();
    //! Turns what differs between two states into the second; the rest stays as it is.
    void apply(const WidgetState &from, const WidgetState &to);
    void setLanguage(const QString &code);
    void setStackingPosition(int position);
    //! Hands the value of the tag to each field that it is bound to.
    void takeTag(const QString &fieldId, const QVariant &value);
    void takeAlarm(const NARV::AlarmInfo &alarm);
    //! Tries whether the item can be painted; one that cannot breaks.
    void tryPaint();

Q_SIGNALS:
    //! The widget's own code went wrong in a way that it cannot go on after. A placeholder that
    //! says why stands in its place until it is made anew.
    void broken(const QString &reason);
    //! A field has another value or binding, whoever caused it.
    void fieldChanged(const QString &fieldId);
    //! The widget's own code has written a field: the value as it is stored.
    void written(const QString &fieldId, const QVariant &value);
    //! Name, position, size or rotation are others.
    void geometryChanged();
    //! A tag or trend was bound or unbound.
    void bindingsChanged();
    //! The instance was made or is gone: everything else may be another.
    void instanceChanged();

private:
    QStringList fieldIds() const;
    QStringList readValues();
    QVariant authoredValue(const QString &fieldId) const;
    QVariant hostValue(const QString &fieldId) const;
    void store(const QString &fieldId, const QVariant &authored);
    void makeWidget();
    void makePlaceholder(const QString &reason);
    void breakLater(const QString &reason);
    void placeItem();
    void giveField(const QString &fieldId);
    void takeWrite(const QString &fieldId, const QVariant &value);

    WidgetState m_state;
    WidgetHost m_host;
    WidgetMetaInformation m_description;
    std::unique_ptr<NARV::Widget> m_widget;
    QPointer<NARV::GraphicsObject> m_item;
    std::unique_ptr<PlaceholderItem> m_placeholder;
    int m_stackingPosition = 0;
};

} // namespace NARV::DEV
