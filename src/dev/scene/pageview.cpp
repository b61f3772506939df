#include "scene/pageview.h"

#include "scene/pagedrag.h"
#include "scene/pagepictures.h"
#include "scene/thrownby.h"
#include "touch/touchsimulator.h"

#include <QApplication>
#include <QBackingStore>
#include <QContextMenuEvent>
#include <QGraphicsScene>
#include <QMimeData>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QScrollBar>
#include <QtMath>

#include <cmath>

namespace NARV::DEV {

// In pixels of the view.
static const int focusWidth = 2;
static const int pageMargin = 24;

static const double smallestZoom = 0.05;
static const double largestZoom = 16;
static const double zoomStep = 1.25;

static const int smallNudge = 1;
static const int largeNudge = 10;

QString PageView::widgetMimeType()
{
    return QStringLiteral("application/x-zpplugin-widget");
}

PageView::PageView(SceneDocument &document, QWidget *parent)
    : QGraphicsView(&document.graphicsScene(), parent)
    , m_document(document)
    , m_touchSimulator(std::make_unique<TouchSimulator>(*viewport()))
    , m_pictures(std::make_unique<PagePictures>(document, *this))
    , m_overlay(document, *this)
{
    setAccessibleName(tr("Page"));
    viewport()->setAccessibleName(accessibleName());
    setObjectName(QStringLiteral("page"));
    setFrameStyle(Box | Plain);
    setLineWidth(focusWidth);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                   QPainter::SmoothPixmapTransform);
    setViewportUpdateMode(SmartViewportUpdate);
    setTransformationAnchor(AnchorUnderMouse);
    setAcceptDrops(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    const auto repaint = [this] { viewport()->update(); };
    connect(&document, &SceneDocument::selectionChanged, this, &PageView::updateOverlay);
    connect(&document, &SceneDocument::geometryChanged, this, &PageView::updateOverlay);
    connect(m_touchSimulator.get(), &TouchSimulator::fingersMoved, this, repaint);
    connect(&document, &SceneDocument::pageChanged, this, [this] {
        applyZoom(zoom());
        resetCachedContent();
        viewport()->update();
    });
    connect(&document, &SceneDocument::modeChanged, this, [this] {
        m_drag.reset();
        m_touchSimulator->setEnabled(!isEditor());
        viewport()->unsetCursor();
        viewport()->update();
    });
    applyZoom(1);
}

PageView::~PageView() = default;

// Zoom

void PageView::setZoom(double zoom)
{
    m_fits = false;
    applyZoom(zoom);
}

void PageView::applyZoom(double zoom)
{
    const double bounded = qBound(smallestZoom, zoom, largestZoom);
    setTransform(QTransform::fromScale(bounded, bounded));
    const double margin = pageMargin / bounded;
    setSceneRect(m_document.graphicsScene().sceneRect().adjusted(-margin, -margin, margin, margin));
    Q_EMIT zoomChanged(bounded);
}

void PageView::zoomBy(double factor)
{
    setZoom(zoom() * factor);
}

void PageView::zoomIn()
{
    zoomBy(zoomStep);
}

void PageView::zoomOut()
{
    zoomBy(1 / zoomStep);
}

void PageView::zoomToFit()
{
    const QSizeF page = m_document.page().size;
    const QSizeF room = QSizeF(maximumViewportSize()) - QSizeF(2 * pageMargin, 2 * pageMargin);
    applyZoom(qMin(room.width() / page.width(), room.height() / page.height()));
    m_fits = true;
}

void PageView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    if (m_fits)
        zoomToFit();
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!isEditor() && !(event->modifiers() & Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    zoomBy(std::pow(zoomStep, event->angleDelta().y() / 120.0));
    event->accept();
}

// Drawing

static void drawCheckerboard(QPainter &painter, const QRectF &area)
{
    static const int square = 8;
    QPixmap tile(2 * square, 2 * square);
    tile.fill(QColor(0xff, 0xff, 0xff));
    QPainter tilePainter(&tile);
    const QColor grey(0xd8, 0xd8, 0xd8);
    tilePainter.fillRect(0, 0, square, square, grey);
    tilePainter.fillRect(square, square, square, square, grey);
    tilePainter.end();
    painter.fillRect(area, QBrush(tile));
}

static void drawPage(QPainter &painter, const Page &page)
{
    const QRectF area(QPointF(), page.size);
    if (page.checkerboard)
        drawCheckerboard(painter, area);
    else
        painter.fillRect(area, page.background);
}

QImage PageView::render(SceneDocument &document, double scale)
{
    const QSizeF size = document.page().size;
    QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) // too large for a picture
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.save();
    painter.scale(scale, scale);
    drawPage(painter, document.page());
    painter.restore();
    const QString thrown = thrownBy(
        [&] { document.graphicsScene().render(&painter, image.rect(), QRectF(QPointF(), size)); });
    if (!thrown.isEmpty())
        document.findBroken();
    return image;
}

namespace {

//! What is painted on although the painter is gone. The toolkit keeps the count to itself.
struct PaintedDevice : QPaintDevice
{
    static void release(QPaintDevice &device)
    {
        device.*(&PaintedDevice::painters) = 0;
        device.paintEngine()->setActive(false);
    }
};

} // namespace

// The frame shows whether the page has the focus: with nothing selected, nothing else does.
bool PageView::event(QEvent *event)
{
    if (event->type() != QEvent::Paint)
        return QGraphicsView::event(event);
    const auto role = hasFocus() ? QPalette::Highlight : QPalette::Mid;
    QPainter(this).fillRect(rect(), palette().color(role));
    return true;
}

// An exception that gets to the event loop would end the program. The toolkit's code is not made
// for one: it leaves its painter at work.
void PageView::paintEvent(QPaintEvent *event)
{
    m_pictures->startFrame(event->region());
    const QString thrown = thrownBy([&] { QGraphicsView::paintEvent(event); });
    m_pictures->endFrame();
    if (thrown.isEmpty())
        return;
    if (QBackingStore *store = viewport()->backingStore())
        PaintedDevice::release(*store->paintDevice());
    m_document.findBroken();
}

void PageView::drawBackground(QPainter *painter, const QRectF &exposed)
{
    painter->fillRect(exposed, palette().color(QPalette::Mid));
    drawPage(*painter, m_document.page());
    QPen pen(palette().color(QPalette::Shadow), 0);
    painter->setPen(pen);
    painter->drawRect(QRectF(QPointF(), m_document.page().size));
}

void PageView::updateOverlay()
{
    m_overlay.update(m_drag.get());
}

void PageView::drawForeground(QPainter *painter, const QRectF &)
{
    painter->save();
    painter->resetTransform();
    if (isEditor())
        m_overlay.paint(*painter, m_drag.get());
    m_touchSimulator->paint(*painter);
    painter->restore();
}

// Mouse

// In editor mode no touch reaches the widgets; the toolkit makes mouse events of it.
bool PageView::viewportEvent(QEvent *event)
{
    const bool isTouch = event->type() == QEvent::TouchBegin ||
                         event->type() == QEvent::TouchUpdate || event->type() == QEvent::TouchEnd;
    if (isEditor() && isTouch) {
        event->ignore();
        return false;
    }
    bool isTaken = true;
    const QString thrown = thrownBy([&] { isTaken = QGraphicsView::viewportEvent(event); });
    if (!thrown.isEmpty())
        m_document.tell(tr("A widget has thrown while it got input: %1").arg(thrown));
    return isTaken;
}

void PageView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton) {
        m_isPanning = true;
        m_panStart = event->pos();
        viewport()->setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (!isEditor()) {
        QGraphicsView::mousePressEvent(event);
        return;
    }
    if (event->button() == Qt::LeftButton)
        startDrag(event->pos(), event->modifiers());
    else if (PlacedWidget *widget = m_document.widgetAt(mapToScene(event->pos())))
        clickWidget(*widget, false);
}

static bool isExtending(Qt::KeyboardModifiers modifiers)
{
    return modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
}

void PageView::startDrag(const QPoint &position, Qt::KeyboardModifiers modifiers)
{
    const QPointF start = mapToScene(position);
    const bool extends = isExtending(modifiers);
    if (const Handle *handle = m_overlay.handleAt(position)) {
        m_drag =
            std::make_unique<HandleDrag>(m_document, *m_document.currentWidget(), *handle, start);
        return;
    }
    PlacedWidget *widget =
        m_overlay.isGrasped(position) ? m_document.currentWidget() : m_document.widgetAt(start);
    if (!widget) {
        m_drag = std::make_unique<BandDrag>(m_document, start, extends);
        return;
    }
    clickWidget(*widget, extends);
    if (!m_document.selection().isEmpty())
        m_drag = std::make_unique<MoveDrag>(m_document, m_document.selection(), start);
}

void PageView::clickWidget(PlacedWidget &widget, bool extends)
{
    QList<PlacedWidget *> selected = m_document.selection();
    const bool wasSelected = selected.removeOne(&widget);
    if (!extends && !wasSelected)
        selected.clear();
    if (!extends || !wasSelected)
        selected += &widget;
    m_document.select(selected);
}

void PageView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isPanning) {
        const QPoint by = event->pos() - m_panStart;
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
        m_panStart = event->pos();
    } else if (!isEditor()) {
        QGraphicsView::mouseMoveEvent(event);
    } else if (m_drag) {
        m_drag->moveTo(mapToScene(event->pos()), event->modifiers());
        updateOverlay();
    } else {
        showCursor(event->pos());
    }
}

void PageView::showCursor(const QPoint &position)
{
    const Handle *handle = m_overlay.handleAt(position);
    if (!handle) {
        const bool isOnWidget =
            m_overlay.isGrasped(position) || m_document.widgetAt(mapToScene(position));
        viewport()->setCursor(isOnWidget ? Qt::SizeAllCursor : Qt::ArrowCursor);
        return;
    }
    static const Qt::CursorShape shapes[] = {Qt::SizeHorCursor, Qt::SizeFDiagCursor,
                                             Qt::SizeVerCursor, Qt::SizeBDiagCursor};
    const double own = qRadiansToDegrees(std::atan2(handle->vertical, handle->horizontal));
    const double degrees = own + m_document.currentWidget()->state().rotation + 360;
    viewport()->setCursor(handle->isRotation() ? Qt::PointingHandCursor
                                               : shapes[qRound(degrees / 45) % 4]);
}

void PageView::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_isPanning && event->button() == Qt::MiddleButton) {
        m_isPanning = false;
        viewport()->unsetCursor();
    } else if (!isEditor()) {
        QGraphicsView::mouseReleaseEvent(event);
    } else {
        if (m_drag && !m_drag->hasMoved())
            endClick(event->modifiers());
        endDrag();
    }
}

// A click on one of several, which might have become a drag of all, selects that one.
void PageView::endClick(Qt::KeyboardModifiers modifiers)
{
    PlacedWidget *clicked = m_document.currentWidget();
    if (clicked && !isExtending(modifiers))
        m_document.select({clicked});
}

void PageView::endDrag()
{
    m_drag.reset();
    updateOverlay();
}

void PageView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (isEditor())
        mousePressEvent(event);
    else
        QGraphicsView::mouseDoubleClickEvent(event);
}

void PageView::contextMenuEvent(QContextMenuEvent *event)
{
    if (isEditor())
        Q_EMIT menuRequested(event->globalPos());
    else
        QGraphicsView::contextMenuEvent(event);
}

// Keyboard

namespace {

struct NudgeKey
{
    int key;
    QPoint step;
};

} // namespace

static const NudgeKey nudgeKeys[] = {{Qt::Key_Left, {-1, 0}},
                                     {Qt::Key_Right, {1, 0}},
                                     {Qt::Key_Up, {0, -1}},
                                     {Qt::Key_Down, {0, 1}}};

void PageView::keyPressEvent(QKeyEvent *event)
{
    if (!isEditor()) {
        QGraphicsView::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        if (m_drag)
            m_drag->cancel();
        else
            m_document.select({});
        endDrag();
        return;
    }
    for (const NudgeKey &nudgeKey : nudgeKeys) {
        if (nudgeKey.key != event->key())
            continue;
        const bool isLarge = event->modifiers() & Qt::ShiftModifier;
        nudge(nudgeKey.step * (isLarge ? largeNudge : smallNudge));
        return;
    }
    event->ignore();
}

// The steps of one selection become one, until something else happens.
void PageView::nudge(const QPoint &step)
{
    if (m_document.selection().isEmpty())
        return;
    QList<WidgetState> states;
    for (const PlacedWidget *widget : m_document.selection()) {
        states += widget->state();
        states.last().position += step;
    }
    m_document.setGeometries(states, tr("Move %1").arg(m_document.titleOf(m_document.selection())),
                             -1);
}

// Tab goes from widget to widget and leaves the page after the last.
bool PageView::focusNextPrevChild(bool next)
{
    const QList<PlacedWidget *> &widgets = m_document.widgets();
    const int current = widgets.indexOf(m_document.currentWidget());
    const int wanted = current + (next ? 1 : (current < 0 ? widgets.size() : -1));
    if (!isEditor() || wanted < 0 || wanted >= widgets.size())
        return QGraphicsView::focusNextPrevChild(next);
    m_document.select({widgets[wanted]});
    return true;
}

// Drops from the palette

void PageView::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void PageView::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(isEditor() && event->mimeData()->hasFormat(widgetMimeType()));
}

void PageView::dropEvent(QDropEvent *event)
{
    const QByteArray dropped = event->mimeData()->data(widgetMimeType());
    const QStringList parts = QString::fromUtf8(dropped).split(QLatin1Char('\n'));
    if (parts.size() != 2 || !m_document.place(parts[0], parts[1], mapToScene(event->pos())))
        return;
    event->acceptProposedAction();
    setFocus();
}

} // namespace NARV::DEV
