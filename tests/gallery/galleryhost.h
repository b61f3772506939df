#pragma once

#include "recordinghost.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/WidgetPrivate>

#include <QGraphicsScene>
#include <QImage>

#include <memory>

//! Loads the gallery and places its widgets, with their defaults and as inside the test bench: a
//! widget that reads a field it does not have is logged.
class GalleryHost : public RecordingHost
{
public:
    using Library = NARV::INTERNAL::WidgetLibraryPluginMetaInformation;
    using Key = QPair<QString, QString>;

    GalleryHost();
    ~GalleryHost() override;

    const Library &library() const;
    //! Places the only widget of the scene, told by id and version, and initialises it.
    NARV::WidgetPrivate *place(const Key &key, const QVariantMap &values = {});
    QVariant getTagValue(const QString &tagName) override { return tags.value(tagName); }
    //! Notes the request, and gives one sample a second of a ramp that starts anew each minute.
    QVariant getTrendValue(const QString &name, const QDateTime &from, const QDateTime &to,
                           unsigned int count,
                           NARV::WidgetActionManager::TrendTimeFormat format) override;

    QGraphicsScene *scene() { return &m_scene; }
    NARV::GraphicsObject *item() const;
    void resize(QSizeF size);
    //! The placed widget at a size (its default one), in a margin of its own.
    QImage grab(QSizeF size = {});

    static constexpr int margin = 20;

    QVariantMap tags;
    struct
    {
        qint64 from = 0;
        qint64 to = 0;
        unsigned int count = 0;
        qint64 span() const { return to - from; }
    } trendRequest; //!< the last one

private:
    NARV::INTERNAL::PluginLoader m_loader;
    Library::WidgetMetaInformation m_description;
    std::unique_ptr<NARV::Widget> m_widget;
    QGraphicsScene m_scene;
};
