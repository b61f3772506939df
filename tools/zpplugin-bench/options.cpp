#include "options.h"

#include "terminal/terminal.h"
#include "terminal/text.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

#include <cmath>

using ZPPluginTool::printable;
using ZPPluginTool::Terminal;

static const char description[] =
    R"(Tries out a widget library: places its widgets on a page and gives them tags, trends, alarms and
touches. PLUGIN is the folder of a plugin or its library.

With --render there is no window and no display is needed: the page is drawn into a PNG file, the
same one bit for bit each time. Without a scene or a widget it shows one of each widget.

  zpplugin-bench ~/hmi/plugins/3f2b8c1a-5e4d-4c7a-9b0e-7a1d2c3e4f50
  zpplugin-bench --render boiler.png --scene boiler.json --mode runtime --at 30 build/libboiler.so
)";

static const char endNote[] = R"(
Exit code: 0 fine; 1 the library or the page could not be shown as it should; 2 wrong usage.)";

static const int greatestSide = 16384;
static const double longestTime = 86400; // seconds

int usageError(const QString &reason)
{
    Terminal(stderr).print(
        QStringLiteral("zpplugin-bench: %1\nTry 'zpplugin-bench --help'.").arg(printable(reason)));
    return 2;
}

static const QCommandLineOption &addOption(QCommandLineParser &parser,
                                           const QCommandLineOption &option)
{
    parser.addOption(option);
    return option;
}

static bool readSize(const QString &text, QSize &size)
{
    static const QRegularExpression pattern(QStringLiteral("\\A(\\d{1,5})x(\\d{1,5})\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    return match.hasMatch() && !size.isEmpty() &&
           size.boundedTo(QSize(greatestSide, greatestSide)) == size;
}

static bool readSeconds(const QString &text, qint64 &milliseconds)
{
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    if (!isNumber || !(seconds >= 0 && seconds <= longestTime))
        return false;
    milliseconds = std::llround(seconds * 1000);
    return true;
}

static bool readMode(const QString &text, std::optional<bool> &isRuntime)
{
    isRuntime = text == QLatin1String("runtime");
    return *isRuntime || text == QLatin1String("editor");
}

namespace {

//! The options of the program and the reading of their values.
class Parser
{
public:
    Parser();

    //! What is wrong; empty for nothing.
    QString read(const QStringList &arguments, Options &options);
    bool asksForHelp() const { return m_parser.isSet(m_help); }
    bool asksForVersion() const { return m_parser.isSet(m_version); }
    QString helpText() const;

private:
    QString readValues(Options &options);
    QString readPaths(Options &options);

    QCommandLineParser m_parser;
    // The toolkit's own help option brings another one for its options, which are none of these.
    const QCommandLineOption m_help =
        addOption(m_parser, {{QStringLiteral("h"), QStringLiteral("help")},
                             QStringLiteral("Show this help.")});
    const QCommandLineOption m_version = m_parser.addVersionOption();
    const QCommandLineOption m_render =
        addOption(m_parser, {QStringLiteral("render"),
                             QStringLiteral("Draw the page into this PNG file; no window."),
                             QStringLiteral("OUT.png")});
    const QCommandLineOption m_scene =
        addOption(m_parser, {QStringLiteral("scene"), QStringLiteral("Open this scene file."),
                             QStringLiteral("FILE")});
    const QCommandLineOption m_widget =
        addOption(m_parser, {QStringLiteral("widget"),
                             QStringLiteral("Draw only this widget, in its latest version."),
                             QStringLiteral("ID")});
    const QCommandLineOption m_size =
        addOption(m_parser, {QStringLiteral("size"),
                             QStringLiteral("Size of that widget, otherwise of the page."),
                             QStringLiteral("WxH")});
    const QCommandLineOption m_mode =
        addOption(m_parser, {QStringLiteral("mode"), QStringLiteral("editor (default) or runtime."),
                             QStringLiteral("MODE")});
    const QCommandLineOption m_language =
        addOption(m_parser, {QStringLiteral("language"),
                             QStringLiteral("Language of the texts, such as it-IT."),
                             QStringLiteral("CODE")});
    const QCommandLineOption m_at =
        addOption(m_parser, {QStringLiteral("at"),
                             QStringLiteral("Draw what the page shows so long after its start."),
                             QStringLiteral("SECONDS")});
};

} // namespace

Parser::Parser()
{
    m_parser.setApplicationDescription(QLatin1String(description));
    m_parser.addPositionalArgument(QStringLiteral("PLUGIN"),
                                   QStringLiteral("Folder of a plugin, or its library."),
                                   QStringLiteral("[PLUGIN]"));
}

QString Parser::helpText() const
{
    // The toolkit takes the name of the program from its application object.
    char name[] = "zpplugin-bench";
    char *arguments[] = {name, nullptr};
    int count = 1;
    const QCoreApplication app(count, arguments);
    return m_parser.helpText() + QLatin1String(endNote);
}

QString Parser::read(const QStringList &arguments, Options &options)
{
    if (!m_parser.parse(arguments))
        return m_parser.errorText();
    if (asksForHelp() || asksForVersion())
        return {};
    const QString problem = readValues(options);
    return problem.isEmpty() ? readPaths(options) : problem;
}

QString Parser::readValues(Options &options)
{
    options.picture = m_parser.value(m_render);
    options.scene = m_parser.value(m_scene);
    options.widget = m_parser.value(m_widget);
    options.language = m_parser.value(m_language);
    static const QRegularExpression code(QStringLiteral("\\A[a-z]{2}-[A-Z]{2}\\z"));
    if (m_parser.isSet(m_language) && !code.match(options.language).hasMatch())
        return QStringLiteral("A language is named as in it-IT, not '%1'.").arg(options.language);
    const QString size = m_parser.value(m_size);
    if (m_parser.isSet(m_size) && !readSize(size, options.size))
        return QStringLiteral(
                   "A size is two numbers of pixels from 1 to %1, as in 800x480, not '%2'.")
            .arg(greatestSide)
            .arg(size);
    const QString mode = m_parser.value(m_mode);
    if (m_parser.isSet(m_mode) && !readMode(mode, options.isRuntime))
        return QStringLiteral("The mode is editor or runtime, not '%1'.").arg(mode);
    const QString at = m_parser.value(m_at);
    if (m_parser.isSet(m_at) && !readSeconds(at, options.at))
        return QStringLiteral("The time is a number of seconds from 0 to %1, not '%2'.")
            .arg(longestTime, 0, 'f', 0)
            .arg(at);
    return {};
}

QString Parser::readPaths(Options &options)
{
    const bool hasPicture = m_parser.isSet(m_render);
    for (const QCommandLineOption *option : {&m_widget, &m_size, &m_at}) {
        if (!hasPicture && m_parser.isSet(*option))
            return QStringLiteral("--%1 needs --render.").arg(option->names().first());
    }
    if (m_parser.isSet(m_widget) && m_parser.isSet(m_scene))
        return QStringLiteral("Either --scene or --widget.");
    const QStringList positional = m_parser.positionalArguments();
    if (positional.size() > 1)
        return QStringLiteral("Unexpected argument '%1'.").arg(positional[1]);
    options.plugin = positional.value(0);
    if (hasPicture && (options.picture.isEmpty() || options.plugin.isEmpty()))
        return QStringLiteral("--render needs a file and a plugin.");
    for (const QString &path : {options.plugin, options.scene}) {
        if (!path.isEmpty() && !QFileInfo::exists(path))
            return QStringLiteral("There is no '%1'.").arg(path);
    }
    return {};
}

static int print(const QString &text)
{
    Terminal terminal(stdout);
    terminal.print(text);
    return terminal.finish(0);
}

Options readOptions(const QStringList &arguments, std::optional<int> &exitCode)
{
    Options options;
    Parser parser;
    const QString problem = parser.read(arguments, options);
    if (!problem.isEmpty())
        exitCode = usageError(problem);
    else if (parser.asksForHelp())
        exitCode = print(parser.helpText());
    else if (parser.asksForVersion())
        exitCode = print(QStringLiteral("zpplugin-bench " ZPPLUGIN_VERSION));
    return options;
}
