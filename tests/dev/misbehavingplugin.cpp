#include <NARV/Event>
#include <NARV/GraphicsObject>
#include <NARV/LogHandler>
#include <NARV/Widget>
#include <NARV/WidgetLibraryPlugin>

#include <QTimer>

#include <map>
#include <stdexcept>

class Culprit : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit Culprit(const NARV::WidgetData &data)
        : Widget(data)
    {
    }
};

//! Does wrong what its field "fault" says.
class CulpritItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit CulpritItem(const NARV::GraphicsObjectData &data)
        : GraphicsObject(data)
    {
    }

    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        if (getFieldValue(QStringLiteral("fault")) == QStringLiteral("paint"))
            throw std::runtime_error("no colours left");
    }

protected:
    void fieldIsChangedEvent(NARV::FieldIsChangedEvent *event) override
    {
        static const std::map<QString, void (CulpritItem::*)()> faults = {
            {QStringLiteral("throw"), &CulpritItem::throwNumber},
            {QStringLiteral("delete"), &QObject::deleteLater},
            {QStringLiteral("log"), &CulpritItem::logMuch},
            {QStringLiteral("write"), &CulpritItem::writeForEver},
        };
        const auto fault = faults.find(event->value().toString());
        if (event->fieldId() == QLatin1String("fault") && fault != faults.end())
            (this->*fault->second)();
        update();
    }

    void mousePressEvent(QGraphicsSceneMouseEvent *) override
    {
        throw std::runtime_error("do not press");
    }

private:
    void throwNumber() { throw 42; }

    void logMuch()
    {
        for (int i = 0; i < 100000; ++i)
            NARV::LogHandler({}, __FILE__, __LINE__, __func__, "TEST").info().debug() << i;
    }

    void writeForEver()
    {
        const QString count = QStringLiteral("count");
        setFieldValue(count, getFieldValue(count).toInt() + 1);
        QTimer::singleShot(0, this, &CulpritItem::writeForEver);
    }
};

class MisbehavingPlugin : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "misbehaving.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    MisbehavingPlugin()
    {
        NARV::registerWidget<Culprit, CulpritItem>(this, QStringLiteral("culprit"),
                                                   QStringLiteral("1.0.0"));
    }
};

#include "misbehavingplugin.moc"
