#include "sessionwatchdog.h"

#include <NARV/WidgetActionManager>

#include <QCoreApplication>
#include <QEvent>
#include <QMap>
#include <QPainter>
#include <QPixmap>

static constexpr int tickMs = 1000;

SessionWatchdog::SessionWatchdog(const NARV::WidgetData &data)
    : NARV::Widget(data)
{
}

QIcon SessionWatchdog::icon()
{
    QPixmap pixmap(256, 256);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.scale(4, 4);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x2b3138), 5, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(QColor(0xf4f5f7));
    painter.drawEllipse(QRectF(6, 6, 52, 52));
    painter.drawLine(QPointF(32, 32), QPointF(32, 16));
    painter.setPen(QPen(QColor(0xc62828), 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(32, 32), QPointF(44, 40));
    return pixmap;
}

void SessionWatchdog::initEvent(NARV::InitEvent *)
{
    if (widgetActionManager().isInsideProjectEditor())
        return;
    m_sinceLastInput.start();
    QCoreApplication::instance()->installEventFilter(this);
    m_tick.start(tickMs, this);
}

void SessionWatchdog::deinitEvent(NARV::DeinitEvent *)
{
    m_tick.stop();
    QCoreApplication::instance()->removeEventFilter(this);
}

bool SessionWatchdog::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::KeyPress:
        m_sinceLastInput.restart();
        break;
    default:
        break;
    }
    return NARV::Widget::eventFilter(watched, event);
}

void SessionWatchdog::timerEvent(QTimerEvent *)
{
    if (isInhibited())
        m_sinceLastInput.restart();
    report(int(m_sinceLastInput.elapsed() / 1000));
}

bool SessionWatchdog::isInhibited()
{
    if (!getFieldValue(QStringLiteral("enabled")).toBool())
        return true;
    const QString tag = getFieldValue(QStringLiteral("inhibitTag")).toString();
    return !tag.isEmpty() && widgetActionManager().getTagValue(tag).toDouble() != 0;
}

SessionWatchdog::Status SessionWatchdog::status(int idleSeconds)
{
    const qint64 timeout = getFieldValue(QStringLiteral("timeout")).toInt();
    if (idleSeconds >= timeout)
        return Expired;
    const qint64 warningTime = getFieldValue(QStringLiteral("warningTime")).toInt();
    return idleSeconds >= timeout - warningTime ? AboutToExpire : Active;
}

void SessionWatchdog::report(int idleSeconds)
{
    const Status now = status(idleSeconds);
    const auto texts = getFieldValue(QStringLiteral("statusTexts")).value<QMap<int, QString>>();
    writeIfChanged("idleTime", idleSeconds);
    writeIfChanged("warning", now == AboutToExpire);
    writeIfChanged("expired", now == Expired);
    writeIfChanged("statusText", texts.value(now));
}

// Every write reaches the host and its tags, also one that changes nothing.
void SessionWatchdog::writeIfChanged(const char *fieldId, const QVariant &value)
{
    if (getFieldValue(QLatin1String(fieldId)) != value)
        setFieldValue(QLatin1String(fieldId), value);
}
