#pragma once

#include "scene/pageoverlay.h"
#include "scene/scenedocument.h"

#include <QGraphicsView>

#include <memory>

namespace NARV::DEV {

class PageDrag;
class PagePictures;
class TouchSimulator;

//! Shows the page and, in editor mode, is where a person places and moves the widgets. In runtime
//! mode all input but zooming goes to the widgets.
class ZPPLUGIN_DEV_EXPORT PageView : public QGraphicsView
{
    Q_OBJECT

public:
    //! Under this type a drag from the palette carries a widget's id, a line feed and its version.
    static QString widgetMimeType();

    explicit PageView(SceneDocument &document, QWidget *parent = nullptr);
    ~PageView() override;

    TouchSimulator &touchSimulator() { return *m_touchSimulator; }

    //! 1 for one scene unit a pixel.
    double zoom() const { return transform().m11(); }
    void setZoom(double zoom);
    void zoomIn();
    void zoomOut();
    //! Shows the whole page; keeps doing so until something else is asked.
    void zoomToFit();

    //! Draws the page as it is, without selection, into a picture of its size times scale.
    static QImage render(SceneDocument &document, double scale = 1);

Q_SIGNALS:
    void zoomChanged(double zoom);
    //! The context menu is asked for, in editor mode.
    void menuRequested(const QPoint &globalPosition);

protected:
    void drawBackground(QPainter *painter, const QRectF &exposed) override;
    void drawForeground(QPainter *painter, const QRectF &exposed) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool isEditor() const { return m_document.mode() == SceneDocument::Mode::Editor; }
    void startDrag(const QPoint &position, Qt::KeyboardModifiers modifiers);
    void clickWidget(PlacedWidget &widget, bool extends);
    void endDrag();
    void endClick(Qt::KeyboardModifiers modifiers);
    void nudge(const QPoint &step);
    void showCursor(const QPoint &position);
    void updateOverlay();
    void zoomBy(double factor);
    void applyZoom(double zoom);

    SceneDocument &m_document;
    std::unique_ptr<TouchSimulator> m_touchSimulator;
    std::unique_ptr<PagePictures> m_pictures;
    std::unique_ptr<PageDrag> m_drag;
    PageOverlay m_overlay;
    QPoint m_panStart;
    bool m_isPanning = false;
    bool m_fits = true;
};

} // namespace NARV::DEV
