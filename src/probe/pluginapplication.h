#pragma once

#include <QApplication>

#include <memory>

namespace NARV::PROBE {

//! The application object of a process that runs plugins' code, which may make pixmaps and widgets.
//! The machine need not have a display.
std::unique_ptr<QApplication> makePluginApplication(int &argc, char **argv);

} // namespace NARV::PROBE
