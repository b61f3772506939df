#include "terminal/text.h"

#include <QStringList>
#include <QVector>

#include <algorithm>
#include <numeric>

namespace ZPPluginTool {

namespace {

struct Range
{
    uint first;
    uint last;
};

bool contains(const Range &range, uint character)
{
    return range.first <= character && character <= range.last;
}

//! Characters that change the direction of the text behind them.
constexpr Range directionControls[] = {{0x200e, 0x200f}, {0x202a, 0x202e}, {0x2066, 0x2069}};

//! Blocks whose characters take two columns: East Asian scripts and pictographs.
constexpr Range wideBlocks[] = {
    {0x1100, 0x115f},   {0x2e80, 0x303e},   {0x3041, 0xa4cf},   {0xa960, 0xa97c},
    {0xac00, 0xd7a3},   {0xf900, 0xfaff},   {0xfe30, 0xfe6f},   {0xff00, 0xff60},
    {0xffe0, 0xffe6},   {0x1f300, 0x1f64f}, {0x1f680, 0x1f6ff}, {0x1f900, 0x1f9ff},
    {0x20000, 0x3fffd},
};

template<size_t size>
bool contains(const Range (&ranges)[size], uint character)
{
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [=](const Range &range) { return contains(range, character); });
}

bool steersTerminal(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Other_Surrogate:
        return true;
    default:
        return contains(directionControls, character);
    }
}

int columnsOf(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        return contains(wideBlocks, character) ? 2 : 1;
    }
}

//! How many letters have to be typed, deleted or replaced to make one text of the other.
int editDistance(const QString &a, const QString &b)
{
    QVector<int> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (QChar letter : a) {
        int diagonal = row[0]++;
        for (int j = 0; j < b.size(); ++j) {
            const int replaced = diagonal + (letter == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, diagonal + 1, replaced});
        }
    }
    return row.last();
}

} // namespace

QString printable(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (uint character : text.toUcs4()) {
        if (steersTerminal(character))
            result += QStringLiteral("\\u%1").arg(character, 4, 16, QLatin1Char('0'));
        else
            result += QString::fromUcs4(&character, 1);
    }
    return result;
}

int columns(const QString &text)
{
    const QVector<uint> characters = text.toUcs4();
    return std::accumulate(characters.begin(), characters.end(), 0,
                           [](int sum, uint character) { return sum + columnsOf(character); });
}

QString elided(const QString &text, int width)
{
    if (columns(text) <= width)
        return text;
    QString result;
    int left = width - 3;
    for (uint character : text.toUcs4()) {
        left -= columnsOf(character);
        if (left < 0)
            break;
        result += QString::fromUcs4(&character, 1);
    }
    return result + QLatin1String("...");
}

QString counted(int count, const QString &noun)
{
    return QStringLiteral("%1 %2").arg(QString::number(count), noun) +
           (count == 1 ? QString() : QStringLiteral("s"));
}

QString closest(const QString &name, const QStringList &candidates)
{
    const int reach = std::clamp(name.size() / 3, 1, 3);
    const QString lowerName = name.toLower();
    QString best;
    int bestDistance = reach + 1;
    for (const QString &candidate : candidates) {
        if (std::abs(candidate.size() - name.size()) > reach)
            continue;
        const int distance = editDistance(lowerName, candidate.toLower());
        if (distance >= bestDistance)
            continue;
        best = candidate;
        bestDistance = distance;
    }
    return best;
}

QString didYouMean(const QString &name, const QStringList &candidates)
{
    const QString candidate = closest(name, candidates);
    return candidate.isEmpty() ? QString()
                               : QStringLiteral(", did you mean \"%1\"?").arg(candidate);
}

} // namespace ZPPluginTool
