#include "core/currentexception_p.h"

#include <exception>

namespace NARV::INTERNAL {

QString currentExceptionText()
{
    try {
        throw;
    } catch (const std::exception &exception) {
        return QStringLiteral("the plugin threw an exception: %1")
            .arg(QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        return QStringLiteral("the plugin threw an exception of unknown type");
    }
}

} // namespace NARV::INTERNAL
