#include <NARV/LogHandler>
#include <NARV/WidgetLibraryPlugin>

#include <stdexcept>

//! The root object of the plugins that the loader is tested with. It logs its life.
#ifdef FIXTURE_NO_INTERFACE
class FixturePlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID FIXTURE_IID FILE "fixture.json")
};
#else
class FixturePlugin : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID FIXTURE_IID FILE "fixture.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    FixturePlugin()
    {
#ifdef FIXTURE_THROWS
        throw std::runtime_error("no license");
#endif
        tell("made");
    }
    ~FixturePlugin() override
    {
        tell("destroyed");
    }

    void aboutToLoad() override
    {
        tell("aboutToLoad");
    }
    void load() override
    {
        tell("load");
    }
    void aboutToUnload() override
    {
        tell("aboutToUnload");
    }
    void unload() override
    {
        tell("unload");
    }

private:
    void tell(const char *what)
    {
        NARV::LogHandler({}, nullptr, 0, nullptr, "FIXTURE").debug().debug() << what;
#ifdef FIXTURE_HOOKS_THROW
        if (qstrcmp(what, "load") == 0)
            throw 5;
#endif
    }
};
#endif

#include "fixtureplugin.moc"
