// The smallest host: loads a plugins folder, prints what the plugins say about themselves and
// draws one of each widget. Its code is shown in the guide for host integrators.

#ifdef INCLUDE_ALL_HEADERS
#include <allheaders.h>
#endif

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/GraphicsObjectPrivateAccessor>
#include <NARV/INTERNAL/PluginLoader>
#include <NARV/INTERNAL/WidgetLibraryPluginData>
#include <NARV/INTERNAL/WidgetLibraryPluginPrivateAccessor>
#include <NARV/INTERNAL/WidgetLibraryPluginUtils>
#include <NARV/INTERNAL/WidgetPrivateAccessor>
#include <NARV/LogHandler>
#include <NARV/Widget>

#include <QApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>

#include <atomic>
#include <cstdio>
#include <memory>

using namespace NARV::INTERNAL;
using Description = WidgetLibraryPluginMetaInformation;

static void printRecord(int type, const QString &source, const QString &message, void *userData)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        static_cast<std::atomic<int> *>(userData)->fetch_add(1);
    std::printf("%s %s\n", qUtf8Printable(source), qUtf8Printable(message));
}

static void printDescription(const Description &library, const QString &language)
{
    std::printf("%s %s by %s\n", qUtf8Printable(library.name().get(language, true)),
                qUtf8Printable(library.version().version()), qUtf8Printable(library.author()));
    for (const auto &widget : library.widgets()) {
        std::printf("  %s %s\n", qUtf8Printable(widget.id()),
                    qUtf8Printable(widget.version().version()));
        for (const auto &field : widget.fields()) {
            const QString value =
                WidgetLibraryPluginUtils::fieldValueToString(field.type(), field.defaultValue());
            std::printf("    %s = %s\n", qUtf8Printable(field.display().get(language, true)),
                        qUtf8Printable(value));
        }
    }
}

static QImage drawing(NARV::WidgetLibraryPlugin *plugin, const QString &pluginId,
                      const Description::WidgetMetaInformation &description)
{
    const auto *library = WidgetLibraryPluginPrivateAccessor::priv(plugin);
    const std::unique_ptr<NARV::Widget> widget(
        library->newWidgetInstance(description.id(), description.version().version(), pluginId,
                                   description.fieldInfo(), nullptr));
    if (!widget)
        return {};
    auto *widgetHost = WidgetPrivateAccessor::priv(widget.get());
    for (const auto &field : description.fields())
        widgetHost->setFieldValue(field.id(), field.defaultValue(), true, false);

    QGraphicsScene scene;
    NARV::GraphicsObject *item = widgetHost->newGraphicsObjectInstance();
    if (!item)
        return {};
    scene.addItem(item);
    GraphicsObjectPrivateAccessor::priv(item)->resize(description.defaultSize());
    widgetHost->init();

    QImage image(description.defaultSize().toSize(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter);

    widgetHost->deinit();
    return image;
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);

    std::atomic<int> problems{0};
    NARV::narvInstallLogMessageHandlerPrivate(printRecord, &problems);
    NARV::narvSetLogMessagePattern("%{TYPE} %{IF-CATEGORY}%{CATEGORY} %{ENDIF}%{MESSAGE}");

    PluginLoader loader;
    const bool allLoaded = loader.loadFromDir(app.arguments().at(1), {});
    loader.init();

    for (const PluginData *record : loader.pluginData()) {
        const auto *library = record->toWidgetLibraryPluginData();
        printDescription(*library->metaInformation(), "it-IT");
        for (const auto &widget : library->metaInformation()->widgets()) {
            const QImage image =
                drawing(library->instance(), library->metaInformation()->id(), widget);
            std::printf("%dx%d, %s above %s\n", image.width(), image.height(),
                        qUtf8Printable(image.pixelColor(0, 0).name()),
                        qUtf8Printable(image.pixelColor(0, image.height() - 1).name()));
        }
    }

    loader.deinit();
    loader.unload();
    NARV::narvUninstallLogMessageHandlerPrivate();
    return allLoaded && problems == 0 ? 0 : 1;
}
