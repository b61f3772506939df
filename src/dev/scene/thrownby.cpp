#include "scene/thrownby.h"

#include <QCoreApplication>

#include <exception>

namespace NARV::DEV {

QString thrownBy(const std::function<void()> &call)
{
    QString words;
    try {
        call();
        return {};
    } catch (const std::exception &exception) {
        words = QString::fromLocal8Bit(exception.what());
    } catch (...) {
    }
    return words.isEmpty() ? QCoreApplication::translate("NARV::DEV", "an exception without words")
                           : words;
}

} // namespace NARV::DEV
