#pragma once

#include <QRegion>

#include <memory>

class QGraphicsView;

namespace NARV::DEV {

class PaintTurns;
class SceneDocument;

//! Paints a page of many widgets from pictures of them, so that the window answers however long
//! the widgets take to paint. A few widgets paint straight to the screen, as in a host.
class PagePictures
{
public:
    //! Both have to outlive this.
    PagePictures(const SceneDocument &document, QGraphicsView &view);
    ~PagePictures();

    //! To be called before and after the view paints.
    void startFrame(const QRegion &exposed);
    void endFrame();

private:
    void giveToAll();
    void takeFromAll();
    void forgetHidden();

    const SceneDocument &m_document;
    QGraphicsView &m_view;
    std::shared_ptr<PaintTurns> m_turns; //!< the pictures may outlive the view
};

} // namespace NARV::DEV
