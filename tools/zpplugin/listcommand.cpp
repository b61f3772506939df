#include "listcommand.h"

#include "output/table.h"
#include "plugin/descriptionjson.h"
#include "plugin/probecommand.h"
#include "terminal/text.h"

#include <QDir>
#include <QJsonArray>

namespace ZPPluginTool {

const CommandHelp listHelp = {
    "list", "DIR", "Show the plugins of a plugins folder",
    R"(Loads every plugin in the plugins folder DIR, which has a folder for each plugin, named by the
plugin's id. Prints what loaded, and of what did not load the reason.

Each plugin is loaded in a process of its own: one that crashes or hangs is listed as such.

  zpplugin list ~/hmi/plugins
  zpplugin list ~/hmi/plugins --disabled 0b5f3c0e-5c0e-4b7e-9a55-4f0f4a1f7c11

Exit code: 0 when all plugins loaded, 1 when some did not, 2 when DIR is not there.)"};

namespace {

//! Takes the plugins one by one and prints them together.
class PluginList
{
public:
    void add(const QString &folder, const NARV::PROBE::ProbeResult &result);
    void addDisabled() { ++m_disabled; }
    void print(const QString &folder, Terminal &terminal) const;
    bool hasFailures() const { return !m_failures.isEmpty(); }

private:
    QString summary() const;

    struct Failure
    {
        QString folder;
        QString reason;
    };

    Table m_table{{{QStringLiteral("ID")},
                   {QStringLiteral("NAME"), false, true},
                   {QStringLiteral("VERSION")},
                   {QStringLiteral("AUTHOR"), false, true},
                   {QStringLiteral("WIDGETS"), true},
                   {QStringLiteral("LOADED IN"), true}}};
    QVector<Failure> m_failures;
    int m_loaded = 0;
    int m_disabled = 0;
};

void PluginList::add(const QString &folder, const NARV::PROBE::ProbeResult &result)
{
    if (!result.failure.isEmpty()) {
        m_failures.append({folder, result.failure});
        return;
    }
    const QJsonObject description = result.values.value(QLatin1String("description")).toObject();
    const auto text = [&](const char *key) {
        return description.value(QLatin1String(key)).toString();
    };
    const double milliseconds = result.values.value(QLatin1String("loadingTimeMs")).toDouble();
    ++m_loaded;
    m_table.addRow({text("id"), text("name"), text("version"), text("author"),
                    QString::number(description.value(QLatin1String("widgets")).toArray().size()),
                    QStringLiteral("%1 ms").arg(milliseconds, 0, 'f', 1)});
}

void PluginList::print(const QString &folder, Terminal &terminal) const
{
    if (m_loaded > 0)
        m_table.print(terminal);
    if (m_loaded > 0 && hasFailures())
        terminal.print({});
    for (const Failure &failure : m_failures)
        terminal.print(QStringList{printable(failure.folder),
                                   terminal.styled(QStringLiteral("FAILED"), Style::Error),
                                   printable(failure.reason)}
                           .join(QLatin1String("  ")));
    if (m_loaded > 0 || hasFailures())
        terminal.print({});
    terminal.print(QStringLiteral("%1: %2").arg(printable(folder), summary()));
}

QString PluginList::summary() const
{
    QString text = counted(m_loaded, QStringLiteral("plugin")) + QLatin1String(" loaded");
    if (hasFailures())
        text += QStringLiteral(", %1 failed").arg(m_failures.size());
    if (m_disabled > 0)
        text += QStringLiteral(", %1 disabled").arg(m_disabled);
    return text;
}

} // namespace

int runList(const QStringList &arguments)
{
    const QString disabledOption = QStringLiteral("disabled");
    CommandLine line(listHelp);
    line.addOption({disabledOption, QStringLiteral("Leave out the plugin in folder ID."),
                    QStringLiteral("ID")});
    line.addTimeoutOption();
    if (const auto code = line.parse(arguments))
        return *code;
    const QDir folder(line.argument());
    if (!folder.exists())
        return line.misused(QStringLiteral("There is no folder '%1'.").arg(line.argument()));

    const QStringList disabled = line.values(disabledOption);
    PluginList list;
    for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (disabled.contains(name))
            list.addDisabled();
        else
            list.add(name,
                     describePlugin(folder.absoluteFilePath(name), ownLanguage, line.seconds()));
    }
    Terminal terminal(stdout);
    list.print(line.argument(), terminal);
    return terminal.finish(list.hasFailures() ? HasFindings : Fine);
}

} // namespace ZPPluginTool
