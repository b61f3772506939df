#pragma once

#include <NARV/GraphicsObject>
#include <NARV/INTERNAL/WidgetLibraryPluginMetaInformation>
#include <NARV/Widget>

#include <QPointer>

#include <memory>

namespace NARV {
class WidgetLibraryPlugin;
} // namespace NARV

namespace NARV::DEV {

//! An initialised instance of a widget with its default values and without a host to talk to.
class WidgetSample
{
public:
    WidgetSample(NARV::WidgetLibraryPlugin &plugin,
                 const INTERNAL::WidgetLibraryPluginMetaInformation &library,
                 const INTERNAL::WidgetLibraryPluginMetaInformation::WidgetMetaInformation &widget,
                 const QString &language);
    ~WidgetSample();

    //! Null if it could not be made.
    NARV::Widget *widget() const { return m_widget.get(); }
    //! Null for a widget that draws nothing. In the default size of the widget; owned by the
    //! sample.
    NARV::GraphicsObject *item() const { return m_item; }

private:
    std::unique_ptr<NARV::Widget> m_widget;
    QPointer<NARV::GraphicsObject> m_item;
};

} // namespace NARV::DEV
