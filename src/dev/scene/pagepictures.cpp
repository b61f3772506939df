#include "scene/pagepictures.h"

#include "scene/paintturns.h"
#include "scene/scenedocument.h"
#include "scene/widgetpicture.h"

#include <QBackingStore>
#include <QGraphicsObject>
#include <QGraphicsView>
#include <QPaintEngine>
#include <QPainter>

namespace NARV::DEV {

static const int manyWidgets = 100;

PagePictures::PagePictures(const SceneDocument &document, QGraphicsView &view)
    : m_document(document)
    , m_view(view)
    , m_turns(std::make_shared<PaintTurns>())
{
}

PagePictures::~PagePictures() = default;

//! Not into a picture that somebody takes of the window.
static bool isPaintedOnScreen(QWidget &widget)
{
    QBackingStore *store = widget.backingStore();
    const QPainter painter(&widget);
    return store && painter.paintEngine() == store->paintDevice()->paintEngine();
}

void PagePictures::startFrame(const QRegion &exposed)
{
    if (m_document.widgets().size() >= manyWidgets)
        giveToAll();
    else
        takeFromAll();
    QWidget &viewport = *m_view.viewport();
    if (isPaintedOnScreen(viewport))
        m_turns->startFrame(exposed, viewport.size() * viewport.devicePixelRatioF());
}

void PagePictures::endFrame()
{
    const QRect waiting = m_turns->endFrame();
    if (m_turns->isShortOfMemory())
        forgetHidden();
    if (!waiting.isEmpty())
        m_view.viewport()->update(waiting);
}

// A widget that has an effect of its own keeps it.
void PagePictures::giveToAll()
{
    for (const PlacedWidget *widget : m_document.widgets()) {
        QGraphicsObject *item = widget->shownItem();
        if (item && !item->graphicsEffect())
            item->setGraphicsEffect(new WidgetPicture(*item, m_turns));
    }
}

static WidgetPicture *pictureOf(const PlacedWidget &widget)
{
    const QGraphicsObject *item = widget.shownItem();
    return item ? qobject_cast<WidgetPicture *>(item->graphicsEffect()) : nullptr;
}

void PagePictures::takeFromAll()
{
    for (const PlacedWidget *widget : m_document.widgets()) {
        if (pictureOf(*widget))
            widget->shownItem()->setGraphicsEffect(nullptr);
    }
}

void PagePictures::forgetHidden()
{
    const QRectF shown = m_view.mapToScene(m_view.viewport()->rect()).boundingRect();
    for (const PlacedWidget *widget : m_document.widgets()) {
        WidgetPicture *picture = pictureOf(*widget);
        if (picture && !widget->shownItem()->sceneBoundingRect().intersects(shown))
            picture->forget();
    }
}

} // namespace NARV::DEV
