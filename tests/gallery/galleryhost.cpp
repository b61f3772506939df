#include "galleryhost.h"
#include "startvalue.h"

#include <NARV/GraphicsObject>
#include <NARV/GraphicsObjectPrivate>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetPrivateAccessor>
#include <NARV/Widget>
#include <NARV/WidgetLibraryPluginPrivate>

#include <QPainter>
#include <QtMath>

using namespace NARV::INTERNAL;

static const QString language = QStringLiteral("de-DE");

GalleryHost::GalleryHost()
{
    insideDevProject = true;
    m_loader.loadFromPluginPath(QStringLiteral(GALLERY_LIBRARY), {});
}

GalleryHost::~GalleryHost() = default;

static const WidgetLibraryPluginData *gallery(const PluginLoader &loader)
{
    return static_cast<const WidgetLibraryPluginData *>(loader.pluginData().first());
}

const GalleryHost::Library &GalleryHost::library() const
{
    return *gallery(m_loader)->metaInformation();
}

NARV::WidgetPrivate *GalleryHost::place(const Key &key, const QVariantMap &values)
{
    m_description = library().widgets()[key];
    m_scene.clear();
    m_widget.reset(WidgetLibraryPluginPrivateAccessor::priv(gallery(m_loader)->instance())
                       ->newWidgetInstance(key.first, key.second, library().id(),
                                           m_description.fieldInfo(), this));
    if (!m_widget)
        return nullptr;
    NARV::WidgetPrivate *widget = WidgetPrivateAccessor::priv(m_widget.get());
    for (const auto &field : m_description.fields()) {
        if (field.isMultiLanguage())
            widget->setFieldValue(field.id() + QLatin1String(".font"), field.defaultFont(), true,
                                  false);
        widget->setFieldValue(field.id(), startValue(field.defaultValue(), language), true, false);
    }
    for (auto it = values.begin(); it != values.end(); ++it)
        widget->setFieldValue(it.key(), *it, true, false);
    if (NARV::GraphicsObject *item = widget->newGraphicsObjectInstance())
        m_scene.addItem(item);
    widget->init();
    return widget;
}

QVariant GalleryHost::getTrendValue(const QString &, const QDateTime &from, const QDateTime &to,
                                    unsigned int count, NARV::WidgetActionManager::TrendTimeFormat)
{
    trendRequest = {from.toMSecsSinceEpoch(), to.toMSecsSinceEpoch(), count};
    QVariantList samples;
    for (qint64 time = trendRequest.from; time <= trendRequest.to; time += 1000)
        samples += QVariant(QVariantList{time, time / 1000 % 60 + 20});
    return samples;
}

NARV::GraphicsObject *GalleryHost::item() const
{
    return m_widget->graphicsObjectsList().first();
}

void GalleryHost::resize(QSizeF size)
{
    GraphicsObjectPrivateAccessor::priv(item())->resize(size);
}

QImage GalleryHost::grab(QSizeF size)
{
    size = size.isValid() ? size : m_description.defaultSize();
    resize(size);
    const QRectF area = QRectF(QPointF(), size).adjusted(-margin, -margin, margin, margin);
    QImage image(qCeil(area.width()), qCeil(area.height()), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    m_scene.render(&painter, image.rect(), QRectF(area.topLeft(), image.size()));
    return image;
}
