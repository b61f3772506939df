// A window of somebody else's program with the test bench in it. Its code is shown in the page
// about the test bench.

#include <NARV/DEV/WidgetLibraryPluginTestWidget>
#include <NARV/INTERNAL/Init>

#include <QApplication>
#include <QIcon>
#include <QMainWindow>

#include <cstdio>

using NARV::DEV::WidgetLibraryPluginTestWidget;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    NARV::INTERNAL::narvInit(QIcon());

    QMainWindow window;
    auto *bench = new WidgetLibraryPluginTestWidget;
    window.setCentralWidget(bench);
    window.show();

    QObject::connect(bench, &WidgetLibraryPluginTestWidget::pluginFailed,
                     [](const QString &reason) { std::printf("%s\n", qUtf8Printable(reason)); });
    bench->openPlugin(app.arguments().at(1));
    const QString name = bench->placeWidget(QStringLiteral("thermometer"), {}, {200, 200});
    const QImage before = bench->renderPage();
    if (!bench->setFieldValue(name, QStringLiteral("temperature"), 110))
        return 1;
    const QImage after = bench->renderPage();
    return after != before && after.save(app.arguments().at(2)) ? 0 : 1;
}
