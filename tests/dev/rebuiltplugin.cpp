#include <NARV/WidgetLibraryPlugin>

//! Tells which build its code is of.
class RebuiltPlugin : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "rebuilt.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    RebuiltPlugin() { setObjectName(QString::number(BUILD)); }
};

#include "rebuiltplugin.moc"
