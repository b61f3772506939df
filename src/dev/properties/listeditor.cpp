#include "properties/listeditor.h"

namespace NARV::DEV {

static const QChar backslash = QLatin1Char('\\');

ListEditor::ListEditor(QWidget *parent)
    : LinesEditor(Enter::BeginsALine, parent)
{
    setToolTip(tr("One text a line; Ctrl+Enter takes them"));
}

QString ListEditor::escaped(QString text)
{
    return text.replace(backslash, QLatin1String("\\\\"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"));
}

QString ListEditor::unescaped(const QString &line)
{
    QString text;
    for (int i = 0; i < line.size(); ++i) {
        const QChar next = i + 1 < line.size() ? line[i + 1] : QChar();
        const bool isEscape =
            line[i] == backslash && (next == backslash || next == QLatin1Char('n'));
        if (isEscape)
            ++i;
        text += isEscape && next == QLatin1Char('n') ? QLatin1Char('\n') : line[i];
    }
    return text;
}

// No line at all is no text, so that a list can be emptied.
QVariant ListEditor::read(const QString &text) const
{
    QStringList list;
    if (text.isEmpty())
        return list;
    for (const QString &line : text.split(QLatin1Char('\n')))
        list += unescaped(line);
    return list;
}

QString ListEditor::write(const QVariant &value) const
{
    QStringList lines;
    for (const QString &text : value.toStringList())
        lines += escaped(text);
    return lines.join(QLatin1Char('\n'));
}

} // namespace NARV::DEV
