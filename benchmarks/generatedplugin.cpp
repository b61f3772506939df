#include <NARV/WidgetLibraryPlugin>

//! A plugin that costs no more than its metadata.
class GeneratedPlugin : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "generated.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)
};

#include "generatedplugin.moc"
