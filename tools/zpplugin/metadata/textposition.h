#pragma once

#include <QByteArray>
#include <QVector>

namespace ZPPluginTool {

//! A place in a text as editors count it, from 1. A column is a character, not a byte.
struct TextPosition
{
    int line = 1;
    int column = 1;
};

//! The places of byte offsets into a UTF-8 text, found in one pass, in the order of the offsets. A
//! byte-order mark takes no column.
QVector<TextPosition> textPositions(const QByteArray &text, const QVector<qint64> &offsets);

} // namespace ZPPluginTool

Q_DECLARE_TYPEINFO(ZPPluginTool::TextPosition, Q_PRIMITIVE_TYPE);
