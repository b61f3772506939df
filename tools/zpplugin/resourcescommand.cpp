#include "resourcescommand.h"

#include "terminal/terminal.h"
#include "terminal/text.h"

#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/LogHandler>

#include <QFileInfo>
#include <QMutex>

namespace ZPPluginTool {

using NARV::INTERNAL::PluginLoader;
using ResourceStep = PluginLoader::ResourceStep;

const CommandHelp resourcesHelp = {
    "resources", "DIR OUT", "Write the editor's documents for all plugins of a folder",
    R"(Loads the plugins of the plugins folder DIR and brings the folder OUT up to date, from which an
editor shows their widgets: documents that are missing or out of date are written. OUT is made if
missing and belongs to the editor alone: every folder in it that is of no known plugin is removed.

All plugins are loaded into this process, as an editor does. 'zpplugin list' and 'zpplugin check'
find the one that crashes.

  zpplugin resources ~/hmi/plugins ~/hmi/resources --language it-IT

Exit code: 0 when all went well, 1 when a plugin did not load or something could not be written or
removed, 2 when DIR is not there.)"};

namespace {

//! One run of the command; takes the library's log while it lives.
class ResourcesRun
{
public:
    ResourcesRun();
    ~ResourcesRun();
    Q_DISABLE_COPY(ResourcesRun)

    int run(const QString &plugins, const QString &out, const QString &language);

private:
    static void takeRecord(int type, const QString &source, const QString &message, void *self);
    void addError(const QString &message);
    void takeStep(const QString &name, ResourceStep step);
    void print(const QString &out);
    QString nameOf(const QString &id) const;
    int count(ResourceStep step) const;

    Terminal m_terminal{stdout};
    PluginLoader m_loader;
    QMutex m_mutex; // guards the next one: a plugin may log on any thread
    QStringList m_errors;
    QMap<QString, ResourceStep> m_last; //!< what became of each folder
    QMap<QString, QString> m_names;     //!< of the plugins
    int m_visited = 0;
};

//! A step that a folder may end with.
struct Ending
{
    ResourceStep step;
    const char *word;
    Style style;
};

const Ending endings[] = {
    {ResourceStep::Generated, "generated", Style::Good},
    {ResourceStep::Kept, "kept", Style::Plain},
    {ResourceStep::Removed, "removed", Style::Plain},
    {ResourceStep::Failed, "failed", Style::Error},
};

} // namespace

ResourcesRun::ResourcesRun()
{
    NARV::narvSetLogMessagePattern(QStringLiteral("%{MESSAGE}"));
    NARV::narvInstallLogMessageHandlerPrivate(takeRecord, this);
}

ResourcesRun::~ResourcesRun()
{
    m_loader.unload();
    NARV::narvUninstallLogMessageHandlerPrivate();
}

void ResourcesRun::takeRecord(int type, const QString &, const QString &message, void *self)
{
    if (type == QtCriticalMsg)
        static_cast<ResourcesRun *>(self)->addError(message);
}

void ResourcesRun::addError(const QString &message)
{
    const QMutexLocker lock(&m_mutex);
    m_errors.append(message);
}

QString ResourcesRun::nameOf(const QString &id) const
{
    return m_names.value(id);
}

int ResourcesRun::count(ResourceStep step) const
{
    return m_last.values().count(step);
}

void ResourcesRun::takeStep(const QString &name, ResourceStep step)
{
    m_last.insert(name, step);
    if (step != ResourceStep::Started && step != ResourceStep::Kept)
        return;
    ++m_visited;
    m_terminal.progress(
        QStringLiteral("%1/%2 %3")
            .arg(QString::number(m_visited), QString::number(m_names.size()), nameOf(name)));
}

void ResourcesRun::print(const QString &out)
{
    QStringList parts;
    for (const Ending &ending : endings) {
        const QString word = QLatin1String(ending.word);
        for (const QString &name : m_last.keys(ending.step)) {
            const QString start = m_terminal.styled(word.leftJustified(9), ending.style);
            m_terminal.print(QStringList{start, printable(name), printable(nameOf(name))}
                                 .join(QLatin1Char(' '))
                                 .trimmed());
        }
        if (const int number = count(ending.step))
            parts += QStringLiteral("%1 %2").arg(QString::number(number), word);
    }
    const QMutexLocker lock(&m_mutex);
    if (parts.isEmpty())
        parts += m_errors.isEmpty() ? QStringLiteral("nothing to do")
                                    : QStringLiteral("nothing was done");
    for (const QString &error : qAsConst(m_errors))
        m_terminal.print(m_terminal.styled(QStringLiteral("error:"), Style::Error) +
                         QLatin1Char(' ') + printable(error));
    m_terminal.print(QStringLiteral("%1: %2").arg(printable(out), parts.join(QLatin1String(", "))));
}

int ResourcesRun::run(const QString &plugins, const QString &out, const QString &language)
{
    m_terminal.progress(QStringLiteral("loading the plugins"));
    bool ok = m_loader.loadFromDir(plugins);
    for (const auto *plugin : m_loader.pluginData())
        m_names.insert(plugin->metaInformation()->id(),
                       plugin->metaInformation()->name().get(language, true));
    if (!m_loader.init()) {
        addError(QStringLiteral("no plugin was loaded from %1").arg(plugins));
        ok = false;
    } else {
        ok &= m_loader.generateStudioExtraResources(
            out, language,
            [this](const QString &name, ResourceStep step) { takeStep(name, step); });
    }
    print(out);
    return m_terminal.finish(ok ? Fine : HasFindings);
}

int runResources(const QStringList &arguments)
{
    CommandLine line(resourcesHelp);
    line.addLanguageOption(QStringLiteral("Write the texts in this language (default: en-US)."),
                           QStringLiteral("en-US"));
    if (const auto code = line.parse(arguments))
        return *code;
    if (!QFileInfo(line.argument()).isDir())
        return line.misused(QStringLiteral("There is no folder '%1'.").arg(line.argument()));
    return ResourcesRun().run(line.argument(), line.argument(1), line.language());
}

} // namespace ZPPluginTool
