#include "scene/paintturns.h"

#include <utility>

namespace NARV::DEV {

static const qint64 frameNanoseconds = 20 * 1000 * 1000;
static const qint64 mostPixels = 32 * 1024 * 1024; // four bytes each

static qint64 pixels(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

void PaintTurns::startFrame(const QRegion &exposed, const QSize &viewSize)
{
    m_isFrame = true;
    m_exposed = exposed;
    m_viewPixels = pixels(viewSize);
    m_spent = 0;
    m_first = std::exchange(m_nextFirst, {});
    m_isShortOfMemory = false;
}

QRect PaintTurns::endFrame()
{
    m_isFrame = false;
    return std::exchange(m_waiting, QRect());
}

bool PaintTurns::isDue(double stackingPosition, const QRect &area)
{
    const bool isInTurn = !m_first || !(stackingPosition < *m_first);
    if (isInTurn && m_spent < frameNanoseconds)
        return true;
    if (isInTurn && !m_nextFirst)
        m_nextFirst = stackingPosition;
    m_waiting |= area;
    return false;
}

bool PaintTurns::exchange(const QSize &before, const QSize &after)
{
    const qint64 wanted = m_pixels - pixels(before) + pixels(after);
    const bool isShort = wanted > mostPixels;
    m_isShortOfMemory = m_isShortOfMemory || isShort;
    if (isShort || pixels(after) > m_viewPixels)
        return false;
    m_pixels = wanted;
    return true;
}

} // namespace NARV::DEV
