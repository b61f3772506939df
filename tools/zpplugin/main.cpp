#include "checkcommand.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    return ZPPluginTool::runCheck(app.arguments().mid(2));
}
