#include "picture.h"

#include "options.h"
#include "probe/pluginapplication.h"
#include "terminal/terminal.h"
#include "terminal/text.h"
#include "virtualtime.h"

#include <NARV/DEV/WidgetLibraryPluginTestWidget>
#include <NARV/INTERNAL/Init>

#include <QDateTime>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QLocale>

using NARV::DEV::WidgetLibraryPluginTestWidget;
using ZPPluginTool::printable;
using ZPPluginTool::Terminal;

namespace {

//! One run of the program.
class Drawing
{
public:
    Drawing(const Options &options, VirtualTime &time);

    bool draw();
    bool hasWarnings() const { return m_hasWarnings; }

private:
    bool openPlugin();
    bool fillPage();
    bool placeWidget();
    void placeAllWidgets();
    bool save();
    void warn(const QString &text);
    bool fail(const QString &text);

    const Options &m_options;
    VirtualTime &m_time;
    Terminal m_errors{stderr};
    bool m_hasWarnings = false;
    WidgetLibraryPluginTestWidget m_bench;
};

} // namespace

Drawing::Drawing(const Options &options, VirtualTime &time)
    : m_options(options)
    , m_time(time)
{
    QObject::connect(&m_bench, &WidgetLibraryPluginTestWidget::notice,
                     [this](const QString &text) { warn(text); });
    QObject::connect(&m_bench, &WidgetLibraryPluginTestWidget::pluginFailed,
                     [this](const QString &reason) { fail(reason); });
}

void Drawing::warn(const QString &text)
{
    m_hasWarnings = true;
    m_errors.print(QStringLiteral("zpplugin-bench: ") + printable(text));
}

bool Drawing::fail(const QString &text)
{
    for (const QString &line : text.split(QLatin1Char('\n')))
        warn(line);
    return false;
}

bool Drawing::draw()
{
    static const QDateTime start(QDate(2024, 5, 1), QTime(10, 20), Qt::UTC);
    if (!openPlugin())
        return false;
    m_time.start(start.toMSecsSinceEpoch());
    m_bench.setStartTime(start);
    m_bench.setRuntimeMode(m_options.isRuntime.value_or(false));
    if (!fillPage())
        return false;
    m_bench.setTimeRunning(true);
    m_time.advance(m_options.at);
    return save();
}

bool Drawing::openPlugin()
{
    if (!m_options.language.isEmpty())
        m_bench.setLanguage(m_options.language);
    m_bench.openPlugin(m_options.plugin);
    if (!m_bench.isPluginLoaded())
        return false;
    const QStringList languages = m_bench.languages();
    if (!m_options.language.isEmpty() && !languages.contains(m_options.language))
        warn(QStringLiteral("The library has no texts in %1, but in %2")
                 .arg(m_options.language, languages.join(QStringLiteral(", "))));
    return true;
}

bool Drawing::fillPage()
{
    if (!m_options.widget.isEmpty())
        return placeWidget();
    QString problem;
    if (m_options.scene.isEmpty())
        placeAllWidgets();
    else if (!m_bench.openScene(m_options.scene, &problem))
        return fail(problem);
    if (m_options.size.isValid())
        m_bench.setPageSize(m_options.size);
    return true;
}

void Drawing::placeAllWidgets()
{
    m_bench.placeAllWidgets();
    QRectF used;
    for (const QString &name : m_bench.widgetNames())
        used |= m_bench.widgetGeometry(name);
    m_bench.setPageSize({used.left() + used.right(), used.top() + used.bottom()});
}

bool Drawing::placeWidget()
{
    const QString name = m_bench.placeWidget(m_options.widget, {}, {});
    if (name.isEmpty())
        return fail(QStringLiteral("There is no widget '%1'; there are %2")
                        .arg(m_options.widget, m_bench.widgetIds().join(QStringLiteral(", "))));
    const QSizeF size =
        m_options.size.isValid() ? m_options.size : m_bench.widgetGeometry(name).size();
    m_bench.setWidgetGeometry(name, QRectF({}, size));
    m_bench.setPageSize(size);
    return true;
}

bool Drawing::save()
{
    return m_bench.renderPage().save(m_options.picture, "PNG") ||
           fail(QStringLiteral("%1 cannot be written").arg(m_options.picture));
}

// Whatever may differ from one run or machine to the next and can be seen in a picture is fixed.
int drawPicture(const Options &options, int &argc, char **argv)
{
    qputenv("TZ", "UTC");
    qSetGlobalQHashSeed(0);
    QLocale::setDefault(
        QLocale(options.language.isEmpty() ? QStringLiteral("en-US") : options.language));
    auto *const time = new VirtualTime;
    QCoreApplication::setEventDispatcher(time); // which the application object owns
    const auto app = NARV::PROBE::makePluginApplication(argc, argv);
    NARV::INTERNAL::narvInit(QIcon());
    Drawing drawing(options, *time);
    const bool isDrawn = drawing.draw();
    return isDrawn && !drawing.hasWarnings() ? 0 : 1;
}
