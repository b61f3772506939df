#include <NARV/GraphicsObject>
#include <NARV/Widget>
#include <NARV/WidgetLibraryPlugin>

#include <QPainter>

class Hello : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit Hello(const NARV::WidgetData &data)
        : NARV::Widget(data)
    {
    }
};

class HelloItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit HelloItem(const NARV::GraphicsObjectData &data)
        : NARV::GraphicsObject(data)
    {
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        const QString text = getFieldValue(QStringLiteral("text")).toString();
        painter->drawText(boundingRect(), Qt::AlignCenter, text);
    }

protected:
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *) override { update(); }
};

class HelloLibrary : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "hello.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    HelloLibrary()
    {
        NARV::registerWidget<Hello, HelloItem>(this, QStringLiteral("hello"),
                                               QStringLiteral("1.0.0"));
    }
};

#include "hello.moc"
