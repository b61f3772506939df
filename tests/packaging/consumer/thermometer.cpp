#include <NARV/GraphicsObject>
#include <NARV/Widget>
#include <NARV/WidgetLibraryPlugin>

#include <QPainter>

class Thermometer : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit Thermometer(const NARV::WidgetData &data)
        : NARV::Widget(data)
    {
    }
};

class ThermometerItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit ThermometerItem(const NARV::GraphicsObjectData &data)
        : NARV::GraphicsObject(data)
    {
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        const double temperature = getFieldValue("temperature").toDouble();
        const double height = size().height() * (temperature + 40) / 160;
        painter->fillRect(QRectF(0, size().height() - height, size().width(), height), Qt::red);
    }
};

class ThermometerLibrary : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "thermometer.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    ThermometerLibrary()
    {
        NARV::registerWidget<Thermometer, ThermometerItem>(this, "thermometer", "1.0.0");
    }
};

#include "thermometer.moc"
