// The smallest host that does all that a host does: it loads the widget libraries of a folder, puts
// their widgets on one scene, attaches them to a simulated plant and lets them go in good order.
//
//   host <plugins folder> [<widget id>] [--editor] [--render <file.png>]

#include "plant.h"
#include "startvalue.h"

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/Init>
#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetPrivateAccessor>
#include <NARV/LogHandler>
#include <NARV/Widget>

#include <QApplication>
#include <QCommandLineParser>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QPainter>
#include <QStyle>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace NARV::INTERNAL;
using Library = WidgetLibraryPluginMetaInformation;

//! One scene with widgets, attached to the plant. Goes before the plant and the libraries do.
class Page
{
public:
    explicit Page(Plant *plant)
        : m_plant(plant)
    {
        m_plant->alarmChanged = [this](const NARV::AlarmInfo &alarm) {
            for (NARV::WidgetPrivate *widget : m_alarmReceivers)
                widget->alarmEvent(alarm);
        };
    }

    // First the widgets are told, then their graphics objects go, then they go themselves.
    ~Page()
    {
        m_plant->alarmChanged = nullptr;
        for (const auto &widget : m_widgets)
            WidgetPrivateAccessor::priv(widget.get())->deinit();
        scene.clear();
    }

    //! Makes a widget and puts it behind the others, in rows from left to right.
    void add(const WidgetLibraryPluginData *library, const Library::WidgetMetaInformation &info)
    {
        const auto *maker = WidgetLibraryPluginPrivateAccessor::priv(library->instance());
        m_widgets.emplace_back(maker->newWidgetInstance(info.id(), info.version().version(),
                                                        library->metaInformation()->id(),
                                                        info.fieldInfo(), m_plant));
        if (!m_widgets.back())
            return m_widgets.pop_back();
        NARV::WidgetPrivate *widget = WidgetPrivateAccessor::priv(m_widgets.back().get());
        setStartValues(widget, info);
        // A project widget does its work at run time without being seen.
        const bool isSeen = info.showInPageGallery() || m_plant->isInsideProjectEditor();
        if (NARV::GraphicsObject *item = isSeen ? widget->newGraphicsObjectInstance() : nullptr)
            place(item, info);
        if (info.receiveAlarmsEvents())
            m_alarmReceivers.push_back(widget);
        QObject::connect(widget, &NARV::WidgetPrivate::fieldIsChanged,
                         [this, id = info.id()](const QString &field, const QVariant &value) {
                             m_plant->setTagValue(Plant::tagOf(id, field), value);
                             showTags();
                         });
        widget->init();
    }

    //! Lets time go by in the plant.
    void advance(double seconds)
    {
        m_plant->advance(seconds);
        showTags();
    }

    QGraphicsScene scene;

private:
    struct Attachment
    {
        NARV::WidgetPrivate *widget;
        QString field;
        QString tag;
    };

    void setStartValues(NARV::WidgetPrivate *widget, const Library::WidgetMetaInformation &info)
    {
        for (const auto &field : info.fields()) {
            if (field.isMultiLanguageText())
                widget->setFieldValue(field.id() + ".font", field.defaultFont(), true, false);
            widget->setFieldValue(field.id(), startValue(field.defaultValue(), "en-US"), true,
                                  false);
            const QString tag = Plant::tagOf(info.id(), field.id());
            if (tag.isEmpty() || m_plant->isInsideProjectEditor())
                continue;
            // Tag and trend fields are told the name: the widget asks for values itself.
            if (field.type() >= Library::FieldType::Tag)
                widget->setFieldValue(field.id(), tag, true, false);
            else
                m_attachments.push_back({widget, field.id(), tag});
        }
    }

    void showTags()
    {
        for (const Attachment &field : m_attachments) {
            const QVariant value = m_plant->getTagValue(field.tag);
            if (value.isValid())
                field.widget->setFieldValue(field.field, value, true, true);
        }
    }

    void place(NARV::GraphicsObject *item, const Library::WidgetMetaInformation &info)
    {
        constexpr qreal pageWidth = 1400;
        constexpr qreal gap = 24;
        auto *caption =
            scene.addSimpleText(info.id() + ' ' + info.version().version(), QFont("Roboto", 9));
        const qreal width = qMax(info.defaultSize().width(), caption->boundingRect().width());
        if (m_corner.x() + width > pageWidth) {
            m_corner = QPointF(0, m_corner.y() + m_rowHeight + 2 * gap);
            m_rowHeight = 0;
        }
        scene.addItem(item);
        caption->setPos(m_corner);
        item->setPos(m_corner + QPointF(0, gap));
        GraphicsObjectPrivateAccessor::priv(item)->resize(info.defaultSize());
        m_corner.rx() += width + gap;
        m_rowHeight = qMax(m_rowHeight, info.defaultSize().height());
    }

    Plant *m_plant;
    std::vector<std::unique_ptr<NARV::Widget>> m_widgets;
    std::vector<Attachment> m_attachments;
    std::vector<NARV::WidgetPrivate *> m_alarmReceivers;
    QPointF m_corner; // of the next widget
    qreal m_rowHeight = 0;
};

//! All widgets of the loaded libraries, or those of one id; the highest first, for even rows.
static void fill(Page &page, const PluginLoader &loader, const QString &widgetId)
{
    for (const PluginData *record : loader.pluginData()) {
        const auto *library = record->toWidgetLibraryPluginData();
        auto widgets = library->metaInformation()->widgets().values();
        std::stable_sort(widgets.begin(), widgets.end(), [](const auto &one, const auto &other) {
            return one.defaultSize().height() > other.defaultSize().height();
        });
        for (const auto &widget : qAsConst(widgets)) {
            if (widgetId.isEmpty() || widget.id() == widgetId)
                page.add(library, widget);
        }
    }
}

static bool render(Page &page, const QString &path)
{
    for (int second = 0; second < 30; ++second)
        page.advance(1);
    QApplication::processEvents(); // what widgets have put off until they are idle
    const QRectF area = page.scene.itemsBoundingRect().adjusted(-24, -24, 24, 24);
    QImage image(area.size().toSize(), QImage::Format_RGB32);
    image.fill(page.scene.backgroundBrush().color());
    QPainter painter(&image);
    page.scene.render(&painter, image.rect(), area);
    return image.save(path);
}

static bool show(Page &page)
{
    QGraphicsView view(&page.scene);
    view.viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    view.showMaximized();
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&page] { page.advance(0.1); });
    clock.start(100);
    return QApplication::exec() == 0;
}

int main(int argc, char **argv)
{
    // The platform has to be known before there is an application that could read the options.
    if (std::find(argv, argv + argc, QByteArray("--render")) != argv + argc)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument("plugins", "The folder of the widget libraries.");
    options.addPositionalArgument("widget", "Show only the widgets with this id.", "[widget]");
    options.addOptions({{"editor", "Show the widgets as a project editor does."},
                        {"render", "Write a picture instead of opening a window.", "file"}});
    options.process(app);
    const QStringList arguments = options.positionalArguments();
    if (arguments.isEmpty())
        options.showHelp(2);

    NARV::narvInstallLogMessageHandlerPrivate(
        [](int, const QString &, const QString &message, void *) { // from any thread
            std::fprintf(stderr, "%s\n", qUtf8Printable(message));
        },
        nullptr);
    narvInit(app.style()->standardIcon(QStyle::SP_ComputerIcon));
    PluginLoader loader;
    bool isFine = loader.loadFromDir(arguments[0], {});
    loader.init();
    {
        Plant plant(options.isSet("editor"));
        Page page(&plant);
        page.scene.setBackgroundBrush(QColor(0xeceff2));
        fill(page, loader, arguments.value(1));
        const QString picture = options.value("render");
        isFine = (picture.isEmpty() ? show(page) : render(page, picture)) && isFine;
    }
    loader.deinit();
    loader.unload();
    NARV::narvUninstallLogMessageHandlerPrivate();
    return isFine ? 0 : 1;
}
