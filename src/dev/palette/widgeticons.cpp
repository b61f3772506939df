#include "palette/widgeticons.h"

#include "scene/page.h"
#include "session/pluginsession.h"
#include "session/widgetsample.h"
#include "window/icons.h"

#include <NARV/GraphicsObject>
#include <NARV/LogHandler>
#include <NARV/NullGraphicsObject>
#include <NARV/Widget>

#include <QGraphicsScene>
#include <QPainter>

namespace NARV::DEV {

static const int pictureSize = 96; //!< pixels; shown smaller, sharp on dense screens too
static const int cornerRadius = 8;

static QIcon generalIcon()
{
    return benchIcon(QStringLiteral("place"));
}

WidgetIcons::WidgetIcons(PluginSession &session, QObject *parent)
    : QObject(parent)
    , m_session(session)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &WidgetIcons::makeNext);
    connect(&session, &PluginSession::aboutToUnload, this, &WidgetIcons::clear);
}

void WidgetIcons::clear()
{
    m_icons.clear();
    m_wanted.clear();
    m_timer.stop();
}

QIcon WidgetIcons::icon(const Key &key)
{
    const auto known = m_icons.constFind(key);
    if (known != m_icons.constEnd())
        return *known;
    m_icons.insert(key, generalIcon());
    m_wanted.append(key);
    m_timer.start();
    return m_icons.value(key);
}

void WidgetIcons::makeNext()
{
    if (m_wanted.isEmpty() || !m_session.isLoaded()) {
        m_timer.stop();
        return;
    }
    const Key key = m_wanted.takeFirst();
    m_icons.insert(key, make(key));
    Q_EMIT made(key);
}

//! The item in the middle of a square, on the page's colour, for it may be as dark as the tree.
static QIcon picture(GraphicsObject &item)
{
    QGraphicsScene scene;
    scene.addItem(&item);
    QPixmap pixmap(pictureSize, pictureSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Page().background);
    painter.drawRoundedRect(pixmap.rect(), cornerRadius, cornerRadius);
    const QRectF area = item.boundingRect();
    const QSizeF shown = area.size().scaled(pixmap.size(), Qt::KeepAspectRatio);
    QRectF target(QPointF(), shown);
    target.moveCenter(QRectF(pixmap.rect()).center());
    scene.render(&painter, target, area);
    painter.end();
    scene.removeItem(&item);
    return QIcon(pixmap);
}

QIcon WidgetIcons::make(const Key &key) const
{
    const auto description = m_session.library()->widgets().value(key);
    try {
        const WidgetSample sample(*m_session.plugin(), *m_session.library(), description,
                                  m_language);
        QIcon icon;
        if (sample.item() && !qobject_cast<NullGraphicsObject *>(sample.item()))
            icon = picture(*sample.item());
        else if (sample.widget())
            icon = QIcon(sample.widget()->icon().pixmap(pictureSize)); // without the plugin's code
        return icon.isNull() ? generalIcon() : icon;
    } catch (...) { // a plugin may throw what it likes
        const LogHandler handler(m_session.library()->id(), nullptr, 0, nullptr, "BENCH");
        handler.warning().debug().noquote()
            << "The widget" << key.first << key.second << "threw when its icon was drawn";
        return generalIcon();
    }
}

} // namespace NARV::DEV
