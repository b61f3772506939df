#include "probe/pluginapplication.h"

#include <cstdio>

namespace NARV::PROBE {

//! Leaves out what Qt says of the machine before any plugin comes into play.
static void printFatalMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtFatalMsg)
        std::fputs(message.toLocal8Bit().constData(), stderr);
}

std::unique_ptr<QApplication> makePluginApplication(int &argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(printFatalMessage);
    auto app = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(nullptr);
    return app;
}

} // namespace NARV::PROBE
