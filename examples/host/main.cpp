// The smallest host that does all that a host does: it loads the widget libraries of a folder, puts
// all their widgets on one scene, attaches them to a simulated plant and lets them go in good
// order.
//
//   host <plugins folder> [<widget id>] [--editor] [--render <file.png>]

#include "plant.h"

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
using Description = WidgetLibraryPluginMetaInformation;
using Text = PluginMetaInformation::TranslationStringType;

static const QString language = QStringLiteral("en-US");

static void printRecord(int, const QString &, const QString &message, void *)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(message)); // from any thread
}

//! A default value as a widget takes it: texts in one language only.
static QVariant inOneLanguage(const QVariant &value)
{
    if (value.userType() == qMetaTypeId<Text>())
        return value.value<Text>().get(language, true);
    if (value.userType() == qMetaTypeId<QList<Text>>()) {
        QStringList texts;
        for (const Text &text : value.value<QList<Text>>())
            texts += text.get(language, true);
        return texts;
    }
    if (value.userType() != qMetaTypeId<QMap<int, Text>>())
        return value;
    QMap<int, QString> texts;
    const auto all = value.value<QMap<int, Text>>();
    for (auto it = all.begin(); it != all.end(); ++it)
        texts.insert(it.key(), it->get(language, true));
    return QVariant::fromValue(texts);
}

//! One scene with widgets, attached to the plant. To be destroyed before the plant, and before the
//! libraries are unloaded.
class Page
{
public:
    explicit Page(Plant *plant);
    ~Page();

    //! Makes a widget and puts it behind the others, in rows from left to right.
    void add(const WidgetLibraryPluginData *library,
             const Description::WidgetMetaInformation &description);
    //! Lets time go by in the plant.
    void advance(double seconds);
    QGraphicsScene *scene() { return &m_scene; }

private:
    struct Attachment
    {
        NARV::WidgetPrivate *widget;
        QString field;
        QString tag;
    };

    void setStartValues(NARV::WidgetPrivate *widget,
                        const Description::WidgetMetaInformation &description);
    void place(NARV::GraphicsObject *item, const QSizeF &size, const QString &caption);
    void showTags();

    Plant *m_plant;
    QGraphicsScene m_scene;
    std::vector<std::unique_ptr<NARV::Widget>> m_widgets;
    std::vector<Attachment> m_attachments;
    std::vector<NARV::WidgetPrivate *> m_alarmReceivers;
    QPointF m_corner; //!< of the next widget
    qreal m_rowHeight = 0;
};

Page::Page(Plant *plant)
    : m_plant(plant)
{
    m_plant->alarmChanged = [this](const NARV::AlarmInfo &alarm) {
        for (NARV::WidgetPrivate *widget : m_alarmReceivers)
            widget->alarmEvent(alarm);
    };
}

// First the widgets are told, then their graphics objects go, then they go themselves.
Page::~Page()
{
    for (const auto &widget : m_widgets)
        WidgetPrivateAccessor::priv(widget.get())->deinit();
    m_plant->alarmChanged = nullptr;
    m_scene.clear();
    m_widgets.clear();
}

void Page::add(const WidgetLibraryPluginData *library,
               const Description::WidgetMetaInformation &description)
{
    std::unique_ptr<NARV::Widget> made(WidgetLibraryPluginPrivateAccessor::priv(library->instance())
                                           ->newWidgetInstance(description.id(),
                                                               description.version().version(),
                                                               library->metaInformation()->id(),
                                                               description.fieldInfo(), m_plant));
    if (!made)
        return;
    NARV::WidgetPrivate *widget = WidgetPrivateAccessor::priv(made.get());
    m_widgets.push_back(std::move(made));
    // A project widget does its work at run time without being seen.
    const bool isSeen = description.showInPageGallery() || m_plant->isInsideProjectEditor();
    if (NARV::GraphicsObject *item = isSeen ? widget->newGraphicsObjectInstance() : nullptr)
        place(item, description.defaultSize(),
              description.id() + QLatin1Char(' ') + description.version().version());
    setStartValues(widget, description);
    if (description.receiveAlarmsEvents())
        m_alarmReceivers.push_back(widget);
    // What the widget writes goes to the tag, and from there to all that is attached to it.
    QObject::connect(widget, &NARV::WidgetPrivate::fieldIsChanged,
                     [this, id = description.id()](const QString &field, const QVariant &value) {
                         const QString tag = Plant::tagOf(id, field);
                         if (tag.isEmpty())
                             return;
                         m_plant->setTagValue(tag, value);
                         showTags();
                     });
    widget->init();
}

void Page::setStartValues(NARV::WidgetPrivate *widget,
                          const Description::WidgetMetaInformation &description)
{
    for (const auto &field : description.fields()) {
        if (field.isMultiLanguageText())
            widget->setFieldValue(field.id() + QLatin1String(".font"), field.defaultFont(), true,
                                  false);
        widget->setFieldValue(field.id(), inOneLanguage(field.defaultValue()), true, false);
        const QString tag = Plant::tagOf(description.id(), field.id());
        if (tag.isEmpty() || m_plant->isInsideProjectEditor())
            continue;
        // These fields are told the name, and ask for values themselves.
        if (field.type() == Description::FieldType::Tag ||
            field.type() == Description::FieldType::Trend)
            widget->setFieldValue(field.id(), tag, true, false);
        else
            m_attachments.push_back({widget, field.id(), tag});
    }
}

void Page::place(NARV::GraphicsObject *item, const QSizeF &size, const QString &caption)
{
    static constexpr qreal pageWidth = 1340;
    static constexpr qreal gap = 24;
    auto *text = m_scene.addSimpleText(caption, QFont(QStringLiteral("Roboto"), 9));
    const qreal width = qMax(size.width(), text->boundingRect().width());
    if (m_corner.x() + width > pageWidth) {
        m_corner = QPointF(0, m_corner.y() + m_rowHeight + gap);
        m_rowHeight = 0;
    }
    text->setPos(m_corner);
    m_scene.addItem(item);
    item->setPos(m_corner + QPointF(0, gap));
    GraphicsObjectPrivateAccessor::priv(item)->resize(size);
    m_corner.rx() += width + gap;
    m_rowHeight = qMax(m_rowHeight, size.height() + gap);
}

void Page::showTags()
{
    for (const Attachment &attachment : m_attachments)
        attachment.widget->setFieldValue(attachment.field, m_plant->getTagValue(attachment.tag),
                                         true, true);
}

void Page::advance(double seconds)
{
    m_plant->advance(seconds);
    showTags();
}

//! All widgets of the loaded libraries, or those of one id; the highest first, for even rows.
static void fill(Page &page, const PluginLoader &loader, const QString &widgetId)
{
    for (const PluginData *record : loader.pluginData()) {
        const auto *library = record->toWidgetLibraryPluginData();
        QList<Description::WidgetMetaInformation> widgets =
            library->metaInformation()->widgets().values();
        std::stable_sort(widgets.begin(), widgets.end(), [](const auto &one, const auto &other) {
            return one.defaultSize().height() > other.defaultSize().height();
        });
        for (const auto &widget : qAsConst(widgets)) {
            if (widgetId.isEmpty() || widget.id() == widgetId)
                page.add(library, widget);
        }
    }
}

static bool render(QGraphicsScene *scene, const QString &path)
{
    QApplication::processEvents(); // what widgets have put off until they are idle
    const QRectF area = scene->itemsBoundingRect().adjusted(-24, -24, 24, 24);
    QImage image(area.size().toSize(), QImage::Format_RGB32);
    image.fill(QColor(0xeceff2));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    scene->render(&painter, image.rect(), area);
    painter.end();
    return image.save(path);
}

static int show(Page &page)
{
    QGraphicsView view(page.scene());
    view.viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    view.setBackgroundBrush(QColor(0xeceff2));
    view.resize(1440, 900);
    view.show();
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&page] { page.advance(0.1); });
    clock.start(100);
    return QApplication::exec();
}

int main(int argc, char **argv)
{
    // The platform has to be known before there is an application that could read the options.
    if (std::find(argv, argv + argc, QByteArray("--render")) != argv + argc)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument(QStringLiteral("plugins"),
                                  QStringLiteral("The folder of the widget libraries."));
    options.addPositionalArgument(QStringLiteral("widget"),
                                  QStringLiteral("Show only the widget with this id."),
                                  QStringLiteral("[widget]"));
    options.addOptions(
        {{QStringLiteral("editor"), QStringLiteral("Show the widgets as a project editor does.")},
         {QStringLiteral("render"), QStringLiteral("Write a picture instead of opening a window."),
          QStringLiteral("file")}});
    options.process(app);
    const QStringList arguments = options.positionalArguments();
    if (arguments.isEmpty())
        options.showHelp(2);

    NARV::narvInstallLogMessageHandlerPrivate(printRecord, nullptr);
    narvInit(app.style()->standardIcon(QStyle::SP_ComputerIcon));
    PluginLoader loader;
    bool isFine = loader.loadFromDir(arguments[0], {});
    loader.init();
    {
        const bool isEditor = options.isSet(QStringLiteral("editor"));
        const QString picture = options.value(QStringLiteral("render"));
        Plant plant(picture.isEmpty() ? QDateTime::currentDateTime()
                                      : QDateTime(QDate(2024, 5, 1), QTime(10, 0)),
                    isEditor);
        Page page(&plant);
        fill(page, loader, arguments.value(1));
        if (picture.isEmpty()) {
            isFine = show(page) == 0 && isFine;
        } else {
            for (int second = 0; second < 30; ++second)
                page.advance(1);
            isFine = render(page.scene(), picture) && isFine;
        }
    }
    loader.deinit();
    loader.unload();
    NARV::narvUninstallLogMessageHandlerPrivate();
    return isFine ? 0 : 1;
}
