#pragma once

#include <NARV/WidgetLibraryPlugin>

//! The root object of the gallery: offers its widgets to the host.
class GalleryLibrary : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "gallery.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    GalleryLibrary();
};
