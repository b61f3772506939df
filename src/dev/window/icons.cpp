#include "window/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace NARV::DEV {

namespace {

//! Draws one SVG in the colour that the palette has for text at that moment.
class DrawnIcon : public QIconEngine
{
public:
    explicit DrawnIcon(const QString &name)
        : m_name(name)
    {
        QFile file(QStringLiteral(":/zpplugin-bench/icons/%1.svg").arg(name));
        if (file.open(QIODevice::ReadOnly))
            m_drawing = file.readAll();
        else
            qWarning("The test bench has no icon \"%s\"", qUtf8Printable(name));
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        QSvgRenderer(recoloured(mode)).render(painter, rect);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const QString key = QStringLiteral("zpplugin-bench/%1/%2/%3x%4")
                                .arg(m_name, colour(mode).name(QColor::HexArgb),
                                     QString::number(size.width()), QString::number(size.height()));
        QPixmap result;
        if (QPixmapCache::find(key, &result))
            return result;
        result = QPixmap(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, result.rect(), mode, state);
        painter.end();
        QPixmapCache::insert(key, result);
        return result;
    }

    QIconEngine *clone() const override { return new DrawnIcon(*this); }

private:
    static QColor colour(QIcon::Mode mode)
    {
        const QPalette palette = QApplication::palette();
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::WindowText);
        return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText
                                                     : QPalette::WindowText);
    }

    QByteArray recoloured(QIcon::Mode mode) const
    {
        QByteArray drawing = m_drawing;
        return drawing.replace("currentColor", colour(mode).name().toLatin1());
    }

    QString m_name;
    QByteArray m_drawing;
};

} // namespace

QIcon benchIcon(const QString &name)
{
    return QIcon(new DrawnIcon(name));
}

} // namespace NARV::DEV
