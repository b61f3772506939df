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
    //! The placed widget at a size (its default one), in a margin of its own.
    QImage grab(QSizeF size = {});

    static constexpr int margin = 20;

private:
    NARV::INTERNAL::PluginLoader m_loader;
    Library::WidgetMetaInformation m_description;
    std::unique_ptr<NARV::Widget> m_widget;
    QGraphicsScene m_scene;
};
