#pragma once

#include <NARV/GraphicsObject>

namespace NARV {

//! The graphics object of project widgets: the widget's icon in the project editor, nothing
//! elsewhere.
class ZPPLUGIN_EXPORT NullGraphicsObject : public GraphicsObject
{
    Q_OBJECT

public:
    Q_INVOKABLE explicit NullGraphicsObject(const NARV::GraphicsObjectData &data);
    ~NullGraphicsObject() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *viewport) override;

private:
    Q_DISABLE_COPY(NullGraphicsObject)
};

} // namespace NARV
