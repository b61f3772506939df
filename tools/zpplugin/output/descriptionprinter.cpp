#include "output/descriptionprinter.h"

#include "terminal/text.h"

#include <QJsonArray>

namespace ZPPluginTool {

namespace {

using Key = QLatin1String;

//! A line of the description: the label and what stands under the key.
struct Row
{
    const char *label;
    const char *key;
};

constexpr Row pluginRows[] = {
    {"id", "id"},
    {"author", "author"},
    {"description", "description"},
    {"copyright", "copyright"},
    {"license", "license"},
    {"language", "defaultLanguage"},
    {"translations", "translation"},
};

constexpr Row widgetRows[] = {
    {"description", "description"},
    {"size", "defaultSize"},
    {"gallery group", "galleryGroupName"},
    {"in page gallery", "showInPageGallery"},
    {"in project gallery", "showInProjectGallery"},
    {"hears of alarms", "receiveAlarmsEvents"},
};

constexpr Row fieldRows[] = {
    {"description", "description"},
    {"group", "group"},
    {"default", "defaultValue"},
    {"minimum", "minimum"},
    {"maximum", "maximum"},
    {"options", "options"},
    {"tag types", "tagAcceptedTypes"},
    {"tag on demand", "tagOnDemand"},
    {"takes a tag", "tagCanBeAttached"},
    {"read only", "readOnly"},
    {"private", "private"},
    {"requirements", "requirements"},
    {"multi-language", "multiLanguage"},
    {"default font", "defaultFont"},
    {"font family label", "displayFontFamily"},
    {"font size label", "displayFontSize"},
    {"font bold label", "displayFontBold"},
    {"font style label", "displayFontStyle"},
    {"font underline label", "displayFontUnderline"},
};

QString fontText(const QJsonObject &font)
{
    QStringList words{font.value(Key("family")).toString(),
                      QString::number(font.value(Key("size")).toInt())};
    if (font.value(Key("bold")).toBool())
        words += QStringLiteral("bold");
    if (font.value(Key("style")).toString() == Key("italic"))
        words += QStringLiteral("italic");
    if (font.value(Key("underline")).toBool())
        words += QStringLiteral("underlined");
    return words.join(QLatin1Char(' '));
}

QString valueText(const QJsonValue &value);

//! A font, an option, or an entry of a map of texts.
QString objectText(const QJsonObject &object)
{
    if (object.contains(Key("family")))
        return fontText(object);
    const bool isOption = object.contains(Key("index"));
    return QStringLiteral("%1 = %2").arg(
        valueText(object.value(isOption ? Key("index") : Key("id"))),
        valueText(object.value(isOption ? Key("option") : Key("value"))));
}

QString valueText(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
    case QJsonValue::Double:
        return QString::number(value.toDouble(), 'g', 12);
    case QJsonValue::Object:
        return objectText(value.toObject());
    case QJsonValue::Array: {
        QStringList texts;
        const QJsonArray elements = value.toArray();
        for (const QJsonValue &element : elements)
            texts += valueText(element);
        return texts.join(QLatin1String(", "));
    }
    default:
        return value.toString();
    }
}

//! Prints lines at an indentation, labels and values in two columns.
class RowPrinter
{
public:
    RowPrinter(Terminal &terminal, int indentation)
        : m_terminal(terminal)
        , m_indentation(indentation, QLatin1Char(' '))
    {
    }

    void heading(const QString &text)
    {
        m_terminal.print(m_indentation + m_terminal.styled(printable(text), Style::Bold));
    }
    template<size_t size>
    void rows(const Row (&rows)[size], const QJsonObject &object)
    {
        for (const Row &row : rows) {
            const QJsonValue value = object.value(Key(row.key));
            // What a widget or field does not have needs no line.
            if (value != QJsonValue(false) || Key(row.key) == Key("defaultValue"))
                print(row.label, valueText(value));
        }
    }

private:
    void print(const char *label, const QString &text)
    {
        QString start = QLatin1String(label);
        for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            m_terminal.print(m_indentation + QLatin1String("  ") + start.leftJustified(22) +
                             printable(line));
            start.clear();
        }
    }

    Terminal &m_terminal;
    QString m_indentation;
};

void printField(const QJsonObject &field, Terminal &terminal)
{
    RowPrinter printer(terminal, 2);
    terminal.print({});
    printer.heading(QStringLiteral("Field %1 (%2): %3")
                        .arg(valueText(field.value(Key("id"))), valueText(field.value(Key("type"))),
                             valueText(field.value(Key("display")))));
    printer.rows(fieldRows, field);
}

void printWidget(const QJsonObject &widget, Terminal &terminal)
{
    RowPrinter printer(terminal, 0);
    terminal.print({});
    printer.heading(QStringLiteral("Widget %1 %2: %3")
                        .arg(valueText(widget.value(Key("id"))),
                             valueText(widget.value(Key("version"))),
                             valueText(widget.value(Key("display")))));
    printer.rows(widgetRows, widget);
    const QJsonArray fields = widget.value(Key("fields")).toArray();
    for (const QJsonValue &field : fields)
        printField(field.toObject(), terminal);
}

} // namespace

void printDescription(const QJsonObject &description, Terminal &terminal)
{
    RowPrinter printer(terminal, 0);
    printer.heading(QStringLiteral("%1 %2").arg(valueText(description.value(Key("name"))),
                                                valueText(description.value(Key("version")))));
    printer.rows(pluginRows, description);
    const QJsonArray widgets = description.value(Key("widgets")).toArray();
    for (const QJsonValue &widget : widgets)
        printWidget(widget.toObject(), terminal);
}

} // namespace ZPPluginTool
