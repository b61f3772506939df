#include "properties/mapeditor.h"

#include "properties/listeditor.h"

#include <QMap>

namespace NARV::DEV {

using StringMap = QMap<int, QString>;

MapEditor::MapEditor(QWidget *parent)
    : LinesEditor(Enter::BeginsALine, parent)
{
    setToolTip(tr("One \"number: text\" a line; Ctrl+Enter takes them"));
}

//! The number of the first line that is malformed or repeats a key; 0 if there is none.
static int readMap(const QString &text, StringMap &map)
{
    int number = 0;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        ++number;
        if (line.trimmed().isEmpty())
            continue;
        const int colon = line.indexOf(QLatin1Char(':'));
        bool isNumber = false;
        const int key = line.left(colon).toInt(&isNumber);
        if (colon < 0 || !isNumber || map.contains(key))
            return number;
        const int blank = line.midRef(colon + 1, 1) == QLatin1String(" ") ? 1 : 0;
        map.insert(key, ListEditor::unescaped(line.mid(colon + 1 + blank)));
    }
    return 0;
}

QString MapEditor::problem() const
{
    StringMap map;
    const int line = readMap(text(), map);
    return line ? tr("Line %1 has to be \"number: text\", with a number of its own.").arg(line)
                : QString();
}

QVariant MapEditor::read(const QString &text) const
{
    StringMap map;
    readMap(text, map);
    return QVariant::fromValue(map);
}

QString MapEditor::write(const QVariant &value) const
{
    const auto map = value.value<StringMap>();
    QStringList lines;
    for (auto it = map.begin(); it != map.end(); ++it)
        lines += QStringLiteral("%1: ").arg(it.key()) + ListEditor::escaped(*it);
    return lines.join(QLatin1Char('\n'));
}

} // namespace NARV::DEV
