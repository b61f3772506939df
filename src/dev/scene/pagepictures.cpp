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
    if (isPaintedOnScreen(*m_view.viewport()))
        m_turns->startFrame(exposed, m_view.viewport()->size());
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

void PagePictures::forgetHidden()
{
    const QRectF shown = m_view.mapToScene(m_view.viewport()->rect()).boundingRect();
    for (const PlacedWidget *widget : m_document.widgets()) {
        const QGraphicsObject *item = widget->shownItem();
        auto *picture = item ? qobject_cast<WidgetPicture *>(item->graphicsEffect()) : nullptr;
        if (picture && !item->sceneBoundingRect().intersects(shown))
            picture->forget();
    }
}

} // namespace NARV::DEV
