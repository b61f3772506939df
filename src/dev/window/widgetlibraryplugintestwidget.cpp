#include "window/widgetlibraryplugintestwidget.h"

#include "data/simulationclock.h"
#include "scene/pageview.h"
#include "scene/sceneediting.h"
#include "session/recentplugins.h"
#include "window/icons.h"
#include "window/widgetlibraryplugintestwidget_p.h"

#include <QApplication>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QMainWindow>
#include <QMimeData>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace NARV::DEV {

WidgetLibraryPluginTestWidget::WidgetLibraryPluginTestWidget(QWidget *parent)
    : QWidget(parent)
    , d_ptr(new WidgetLibraryPluginTestWidgetPrivate(this))
{
    setAcceptDrops(true);
    setWindowIcon(benchIcon(QStringLiteral("palette")));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d_ptr->frame);
}

WidgetLibraryPluginTestWidget::~WidgetLibraryPluginTestWidget() = default;

void WidgetLibraryPluginTestWidget::setSettings(QSettings *settings,
                                                const QString &unsavedWorkFolder)
{
    Q_D(WidgetLibraryPluginTestWidget);
    d->settings = settings;
    d->useSettings();
    d->keeper.keepUnsavedIn(unsavedWorkFolder);
    d->offerUnsavedWork();
}

void WidgetLibraryPluginTestWidget::showLog()
{
    d_ptr->relay.install();
}

void WidgetLibraryPluginTestWidget::setProbeCommand(const QString &program,
                                                    const QStringList &arguments)
{
    d_ptr->session.setProbeCommand(program, arguments);
}

void WidgetLibraryPluginTestWidget::openPlugin(const QString &path)
{
    d_ptr->openPlugin(path);
}

bool WidgetLibraryPluginTestWidget::isPluginLoaded() const
{
    return d_ptr->session.isLoaded();
}

void WidgetLibraryPluginTestWidget::reloadPlugin()
{
    d_ptr->session.reload();
}

QStringList WidgetLibraryPluginTestWidget::widgetIds() const
{
    const auto *library = d_ptr->session.library();
    return library ? library->widgetsLatestVersion().keys() : QStringList();
}

QString WidgetLibraryPluginTestWidget::placeWidget(const QString &widgetId, const QString &version,
                                                   const QPointF &centre)
{
    const auto *library = d_ptr->session.library();
    if (!library)
        return {};
    const QString latest = library->widgetsLatestVersion().value(widgetId).version().version();
    const PlacedWidget *widget =
        d_ptr->document.place(widgetId, version.isEmpty() ? latest : version, centre);
    return widget ? widget->name() : QString();
}

void WidgetLibraryPluginTestWidget::placeAllWidgets()
{
    SceneEditing::placeAll(d_ptr->document);
}

QStringList WidgetLibraryPluginTestWidget::widgetNames() const
{
    QStringList names;
    for (const PlacedWidget *widget : d_ptr->document.widgets())
        names += widget->name();
    return names;
}

QRectF WidgetLibraryPluginTestWidget::widgetGeometry(const QString &widgetName) const
{
    const PlacedWidget *widget = d_ptr->document.widget(widgetName);
    return widget ? QRectF(widget->state().position, widget->state().size) : QRectF();
}

bool WidgetLibraryPluginTestWidget::setWidgetGeometry(const QString &widgetName,
                                                      const QRectF &geometry, double rotation)
{
    PlacedWidget *widget = d_ptr->document.widget(widgetName);
    if (!widget || geometry.isEmpty())
        return false;
    d_ptr->document.setGeometry(*widget, geometry.topLeft(), geometry.size(), rotation);
    return true;
}

QSizeF WidgetLibraryPluginTestWidget::pageSize() const
{
    return d_ptr->document.page().size;
}

void WidgetLibraryPluginTestWidget::setPageSize(const QSizeF &size)
{
    d_ptr->document.setPageSize(size);
}

QVariant WidgetLibraryPluginTestWidget::fieldValue(const QString &widgetName,
                                                   const QString &fieldId) const
{
    const PlacedWidget *widget = d_ptr->document.widget(widgetName);
    return widget && widget->field(fieldId).isValid() ? widget->fieldValue(fieldId) : QVariant();
}

bool WidgetLibraryPluginTestWidget::setFieldValue(const QString &widgetName, const QString &fieldId,
                                                  const QVariant &value)
{
    PlacedWidget *widget = d_ptr->document.widget(widgetName);
    QVariant authored;
    if (!widget || !widget->toFieldValue(fieldId, value, authored))
        return false;
    d_ptr->document.setFieldValue(*widget, fieldId, authored);
    d_ptr->updateFieldsRequirements();
    return true;
}

bool WidgetLibraryPluginTestWidget::bindField(const QString &widgetName, const QString &fieldId,
                                              const QString &tagName)
{
    PlacedWidget *widget = d_ptr->document.widget(widgetName);
    if (!widget || !widget->canBeBound(fieldId))
        return false;
    d_ptr->document.bind(*widget, fieldId, tagName);
    return true;
}

bool WidgetLibraryPluginTestWidget::setTagValue(const QString &tagName, const QVariant &value)
{
    return d_ptr->data.writeTag(tagName, value);
}

bool WidgetLibraryPluginTestWidget::isRuntimeMode() const
{
    return d_ptr->document.mode() == SceneDocument::Mode::Runtime;
}

void WidgetLibraryPluginTestWidget::setRuntimeMode(bool isRuntime)
{
    d_ptr->setRuntime(isRuntime);
}

QStringList WidgetLibraryPluginTestWidget::languages() const
{
    const auto *library = d_ptr->session.library();
    if (!library)
        return {QStringLiteral("en-US")};
    QStringList codes = QStringList(library->defaultLanguage()) + library->translation();
    codes.removeDuplicates();
    return codes;
}

QString WidgetLibraryPluginTestWidget::language() const
{
    return d_ptr->document.language();
}

void WidgetLibraryPluginTestWidget::setLanguage(const QString &languageCode)
{
    d_ptr->document.setLanguage(languageCode);
}

bool WidgetLibraryPluginTestWidget::openScene(const QString &path, QString *problem)
{
    const QString reason = d_ptr->openSceneFile(path);
    if (problem)
        *problem = reason;
    return reason.isEmpty();
}

bool WidgetLibraryPluginTestWidget::saveScene(const QString &path, QString *problem)
{
    QString reason;
    return d_ptr->keeper.save(path, problem ? *problem : reason);
}

bool WidgetLibraryPluginTestWidget::isTimeRunning() const
{
    return d_ptr->data.clock().isRunning();
}

void WidgetLibraryPluginTestWidget::setTimeRunning(bool isRunning)
{
    d_ptr->data.clock().setRunning(isRunning);
}

void WidgetLibraryPluginTestWidget::setStartTime(const QDateTime &time)
{
    d_ptr->data.clock().setStartTime(time);
}

void WidgetLibraryPluginTestWidget::advanceTime(qint64 milliseconds)
{
    d_ptr->data.clock().advance(milliseconds);
    d_ptr->document.deliverPending();
}

QImage WidgetLibraryPluginTestWidget::renderPage(double scale) const
{
    d_ptr->document.deliverPending();
    return PageView::render(d_ptr->document, scale);
}

// Closing does not ask: unsaved work is kept and offered the next time.
void WidgetLibraryPluginTestWidget::closeEvent(QCloseEvent *event)
{
    Q_D(WidgetLibraryPluginTestWidget);
    d->saveLayout();
    d->keeper.keepUnsaved();
    QWidget::closeEvent(event);
}

static bool isBehindTab(const QWidget *widget)
{
    while (widget && !qobject_cast<const QDockWidget *>(widget))
        widget = widget->parentWidget();
    return widget && widget->visibleRegion().isEmpty();
}

static void scrollTo(QWidget *widget)
{
    for (QWidget *parent = widget; parent; parent = parent->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(parent))
            area->ensureWidgetVisible(widget);
    }
}

// The panels behind the tabs of others are somewhere beyond the window, where nobody sees the
// focus.
bool WidgetLibraryPluginTestWidget::focusNextPrevChild(bool next)
{
    const QWidget *first = QApplication::focusWidget();
    bool isMoved = QWidget::focusNextPrevChild(next);
    while (isMoved && QApplication::focusWidget() != first &&
           isBehindTab(QApplication::focusWidget()))
        isMoved = QWidget::focusNextPrevChild(next);
    scrollTo(QApplication::focusWidget());
    return isMoved;
}

//! Who drags a file does not give it away.
static void acceptCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

void WidgetLibraryPluginTestWidget::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        acceptCopy(*event);
}

void WidgetLibraryPluginTestWidget::dragMoveEvent(QDragMoveEvent *event)
{
    acceptCopy(*event);
}

void WidgetLibraryPluginTestWidget::dropEvent(QDropEvent *event)
{
    acceptCopy(*event);
    d_ptr->openDropped(event->mimeData()->urls());
}

void WidgetLibraryPluginTestWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (std::exchange(d_ptr->hasBeenShown, true))
        return;
    d_ptr->view->zoomToFit();
    d_ptr->pages->currentWidget()->setFocus();
}

} // namespace NARV::DEV
