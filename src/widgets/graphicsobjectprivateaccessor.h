#pragma once

#include <NARV/GraphicsObject>
#include <NARV/GraphicsObjectPrivate>

namespace NARV::INTERNAL {

//! Gives the host the private part of a graphics object.
class ZPPLUGIN_EXPORT GraphicsObjectPrivateAccessor
{
public:
    static GraphicsObjectPrivate *priv(GraphicsObject *graphicsObject)
    {
        return graphicsObject->d_func();
    }
};

} // namespace NARV::INTERNAL
