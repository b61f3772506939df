#pragma once

#include <QString>

#include <functional>

namespace NARV::DEV {

//! The wanted name, with a number behind it (the one it has counted on) if it is taken.
QString freeName(const QString &wanted, const std::function<bool(const QString &)> &isTaken);

//! Why a text can not be the name of a tag, trend or alarm; empty if it can.
QString nameProblem(const QString &name, const std::function<bool(const QString &)> &isTaken);

} // namespace NARV::DEV
