#include "metadata/textposition.h"

#include <algorithm>
#include <numeric>

namespace ZPPluginTool {

static bool continuesCharacter(char byte)
{
    return (static_cast<uchar>(byte) & 0xc0) == 0x80;
}

static void advance(TextPosition &position, char byte)
{
    if (byte == '\n') {
        ++position.line;
        position.column = 1;
    } else if (!continuesCharacter(byte)) {
        ++position.column;
    }
}

QVector<TextPosition> textPositions(const QByteArray &text, const QVector<qint64> &offsets)
{
    QVector<int> order(offsets.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](int a, int b) { return offsets[a] < offsets[b]; });

    QVector<TextPosition> result(offsets.size());
    TextPosition position;
    qint64 reached = text.startsWith("\xef\xbb\xbf") ? 3 : 0;
    for (int number : qAsConst(order)) {
        for (; reached < qMin<qint64>(offsets[number], text.size()); ++reached)
            advance(position, text[static_cast<int>(reached)]);
        result[number] = position;
    }
    return result;
}

} // namespace ZPPluginTool
