#pragma once

#include <QRegion>
#include <QSize>

#include <zpplugin_dev_export.h>

#include <optional>

namespace NARV::DEV {

//! Gives the widgets of a page their turns to paint, so that a frame with many of them takes no
//! longer than input can wait. Each frame goes on where the one before has run out of time.
class ZPPLUGIN_DEV_EXPORT PaintTurns
{
public:
    //! Of a view that has so many pixels on the screen.
    void startFrame(const QRegion &exposed, const QSize &viewSize);
    //! Returns the area of the widgets whose turn has not come, in pixels of the view.
    QRect endFrame();
    //! Otherwise all is to be painted at once, as for a file.
    bool isFrame() const { return m_isFrame; }
    bool isExposed(const QRect &area) const { return (QRegion(area) - m_exposed).isEmpty(); }

    //! Whether the widget at this place in the stacking order may paint now. If not, its area waits
    //! for a later frame.
    bool isDue(double stackingPosition, const QRect &area);
    //! Takes from the time of the frame what a widget has used.
    void spend(qint64 nanoseconds) { m_spent += nanoseconds; }

    //! Takes memory for a picture in place of another; sizes are in pixels. False, and nothing is
    //! taken, if there is not enough or if it is not worth it for what can be seen of the picture.
    bool exchange(const QSize &before, const QSize &after);
    //! There was not enough memory in this frame.
    bool isShortOfMemory() const { return m_isShortOfMemory; }

private:
    bool m_isFrame = false;
    QRegion m_exposed;
    qint64 m_viewPixels = 0;
    qint64 m_spent = 0;
    std::optional<double> m_first;     //!< the lowest place whose turn it is; none: that of all
    std::optional<double> m_nextFirst; //!< where time has run out; none if it has not
    QRect m_waiting;
    qint64 m_pixels = 0; //!< of all pictures
    bool m_isShortOfMemory = false;
};

} // namespace NARV::DEV
