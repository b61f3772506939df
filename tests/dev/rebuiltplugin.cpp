#include <NARV/GraphicsObject>
#include <NARV/Widget>
#include <NARV/WidgetLibraryPlugin>

//! Of what is not hidden Linux has one for all builds that are loaded.
Q_DECL_EXPORT inline const QStringList shared{QString::number(BUILD)};

class Sign : public NARV::Widget
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit Sign(const NARV::WidgetData &data)
        : NARV::Widget(data)
    {
    }
};

class SignItem : public NARV::GraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit SignItem(const NARV::GraphicsObjectData &data)
        : NARV::GraphicsObject(data)
    {
        setObjectName(QString::number(BUILD));
    }

    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}
};

//! Tells which build its code is of.
class RebuiltPlugin : public NARV::WidgetLibraryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.Mirt.NARV.WidgetLibrary" FILE "rebuilt.json")
    Q_INTERFACES(NARV::WidgetLibraryPlugin)

public:
    RebuiltPlugin()
    {
        setObjectName(QString::number(BUILD));
        setProperty("shared", shared);
        NARV::registerWidget<Sign, SignItem>(this, QStringLiteral("sign"), QStringLiteral("1.0.0"));
    }
};

#include "rebuiltplugin.moc"
