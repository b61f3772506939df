#include "session/widgetsample.h"

#include "scene/authoredvalue.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetPrivateAccessor>

namespace NARV::DEV {

static const QSizeF unspecifiedSize(100, 100);

static void setDefaults(WidgetPrivate &widget, const WidgetMetaInformation &description,
                        const QString &language)
{
    for (const FieldMetaInformation &field : description.fields()) {
        widget.setFieldValue(field.id(), inLanguage(field.defaultValue(), language), true, false);
        if (field.isMultiLanguageText())
            widget.setFieldValue(fontId(field.id()), field.defaultFont(), true, false);
    }
}

WidgetSample::WidgetSample(WidgetLibraryPlugin &plugin,
                           const INTERNAL::WidgetLibraryPluginMetaInformation &library,
                           const WidgetMetaInformation &widget, const QString &language)
    : m_widget(INTERNAL::WidgetLibraryPluginPrivateAccessor::priv(&plugin)->newWidgetInstance(
          widget.id(), widget.version().version(), library.id(), widget.fieldInfo(), nullptr))
{
    if (!m_widget)
        return;
    WidgetPrivate *d = INTERNAL::WidgetPrivateAccessor::priv(m_widget.get());
    setDefaults(*d, widget, language);
    m_item = d->newGraphicsObjectInstance();
    if (m_item) {
        const QSizeF size = widget.defaultSize();
        INTERNAL::GraphicsObjectPrivateAccessor::priv(m_item)->resize(
            size.isEmpty() ? unspecifiedSize : size);
    }
    d->init();
}

WidgetSample::~WidgetSample()
{
    if (m_widget)
        INTERNAL::WidgetPrivateAccessor::priv(m_widget.get())->deinit();
    delete m_item;
}

} // namespace NARV::DEV
