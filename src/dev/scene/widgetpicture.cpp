#include "scene/widgetpicture.h"

#include "scene/paintturns.h"

#include <QElapsedTimer>
#include <QGraphicsItem>
#include <QPainter>

#include <cmath>

namespace NARV::DEV {

WidgetPicture::WidgetPicture(const QGraphicsItem &item, std::shared_ptr<PaintTurns> turns)
    : m_item(item)
    , m_turns(std::move(turns))
{
}

WidgetPicture::~WidgetPicture()
{
    forget();
}

void WidgetPicture::forget()
{
    m_turns->exchange(m_image.size(), {0, 0});
    m_image = {};
}

void WidgetPicture::sourceChanged(ChangeFlags)
{
    m_isOutdated = true;
}

static bool isSameShape(const QTransform &a, const QTransform &b)
{
    return a.m11() == b.m11() && a.m12() == b.m12() && a.m21() == b.m21() && a.m22() == b.m22();
}

static bool isWhole(double pixels)
{
    static const double tolerance = 1e-3;
    return std::abs(pixels - std::round(pixels)) < tolerance;
}

bool WidgetPicture::isUpToDate(const QTransform &toScreen) const
{
    return !m_isOutdated && !m_image.isNull() && isSameShape(m_place, toScreen) &&
           isWhole(toScreen.dx() - m_place.dx()) && isWhole(toScreen.dy() - m_place.dy());
}

// Children and items that ask for it paint no more than is exposed.
bool WidgetPicture::canBePainted(const QRect &area) const
{
    const bool paintsInParts = !m_item.childItems().isEmpty() ||
                               m_item.flags().testFlag(QGraphicsItem::ItemUsesExtendedStyleOption);
    return !paintsInParts || m_turns->isExposed(area);
}

//! In whole pixels, with room for a smooth edge.
static QRect pixelsIn(const QRectF &area)
{
    static const int smoothEdge = 1;
    return area.toAlignedRect().adjusted(-smoothEdge, -smoothEdge, smoothEdge, smoothEdge);
}

void WidgetPicture::draw(QPainter *painter)
{
    const QRect area = pixelsIn(painter->worldTransform().mapRect(sourceBoundingRect()));
    if (!m_turns->isFrame() || !canBePainted(area)) {
        drawSource(painter);
        return;
    }
    if (!isUpToDate(painter->deviceTransform()) && m_turns->isDue(m_item.zValue(), area) &&
        !paint(*painter)) {
        forget();
        drawSource(painter);
        return;
    }
    if (!m_image.isNull())
        show(*painter);
}

//! Fonts have the size that they would have on the screen.
static void copyResolution(const QPaintDevice &from, QImage &to)
{
    static constexpr double metersPerInch = 0.0254;
    to.setDevicePixelRatio(from.devicePixelRatioF());
    to.setDotsPerMeterX(qRound(from.logicalDpiX() / metersPerInch));
    to.setDotsPerMeterY(qRound(from.logicalDpiY() / metersPerInch));
}

//! What a widget finds set in the view's painter, which it may rely on.
static void copyDefaults(const QPainter &from, QPainter &to)
{
    to.setRenderHints(from.renderHints());
    to.setFont(from.font());
    to.setPen(from.pen());
    to.setBrush(from.brush());
    to.setBackground(from.background());
    to.setLayoutDirection(from.layoutDirection());
}

//! False if the picture takes too much memory.
bool WidgetPicture::paint(const QPainter &painter)
{
    const QTransform &toScreen = painter.deviceTransform();
    const QRect area = pixelsIn(toScreen.mapRect(sourceBoundingRect()));
    if (!m_turns->exchange(m_image.size(), area.size()))
        return false;
    QElapsedTimer timer;
    timer.start();
    if (m_image.size() != area.size())
        m_image = QImage(area.size(), QImage::Format_ARGB32_Premultiplied);
    copyResolution(*painter.device(), m_image);
    m_image.fill(Qt::transparent);
    m_corner = area.topLeft();
    m_place = toScreen;
    m_isOutdated = false;
    QPainter picturePainter(&m_image);
    copyDefaults(painter, picturePainter);
    const double unit = 1 / m_image.devicePixelRatioF();
    picturePainter.setWorldTransform(m_place * QTransform::fromTranslate(-area.x(), -area.y()) *
                                     QTransform::fromScale(unit, unit));
    try {
        drawSource(&picturePainter);
    } catch (...) { // the toolkit has saved the state and comes no further
        picturePainter.restore();
        m_isOutdated = true;
        throw;
    }
    m_turns->spend(timer.nsecsElapsed());
    return true;
}

// The opacity is in the picture already.
void WidgetPicture::show(QPainter &painter) const
{
    const QTransform toScreen = painter.deviceTransform();
    const QTransform moved =
        isSameShape(m_place, toScreen)
            ? QTransform::fromTranslate(toScreen.dx() - m_place.dx(), toScreen.dy() - m_place.dy())
            : m_place.inverted() * toScreen;
    painter.save();
    painter.resetTransform();
    painter.setWorldTransform(moved * painter.deviceTransform().inverted());
    painter.setOpacity(1);
    painter.drawImage(QRect(m_corner, m_image.size()), m_image);
    painter.restore();
}

} // namespace NARV::DEV
