#include <NARV/WidgetLibraryPlugin>

//! The root object of a plugin with a real library's code and with metadata of a set size.
class GeneratedPlugin : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "generated.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)
};

#include "generatedplugin.moc"
