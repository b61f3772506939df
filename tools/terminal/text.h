#pragma once

#include <QString>

namespace ZPPluginTool {

//! The text with everything escaped that could steer a terminal or reorder the line: control
//! characters, line breaks and direction overrides become "\u001b" and the like.
QString printable(const QString &text);

//! How many columns a terminal needs to show the text.
int columns(const QString &text);

//! The text itself, or as much of it as fits with "..." behind it.
QString elided(const QString &text, int width);

//! "1 error", "2 errors".
QString counted(int count, const QString &noun);

//! The candidate that was most likely meant by name, or an empty text.
QString closest(const QString &name, const QStringList &candidates);

//! ", did you mean "X"?" with the closest candidate, or an empty text.
QString didYouMean(const QString &name, const QStringList &candidates);

} // namespace ZPPluginTool
