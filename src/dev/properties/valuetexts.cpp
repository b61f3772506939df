#include "properties/valuetexts.h"

#include "properties/textentries.h"

#include <QColor>
#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QFont>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

#include <algorithm>
#include <iterator>

namespace NARV::DEV {

static constexpr int decorationSize = 16;

static QString translated(const char *text)
{
    return QCoreApplication::translate("ValueTexts", text);
}

QString numberText(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

static QString textOnOneLine(const QVariant &value, const ValueKind &)
{
    return value.toString().replace(QLatin1Char('\n'), QStringLiteral(" ⏎ "));
}

static QString entriesText(const QVariant &value, const ValueKind &kind)
{
    const bool isMap = isTextMap(value);
    QStringList texts;
    for (const TextEntry &entry : textEntries(value)) {
        const QString text = textOnOneLine(entry.text, kind);
        texts += isMap ? QStringLiteral("%1: ").arg(entry.key) + text : text;
    }
    if (texts.isEmpty())
        return translated(QT_TRANSLATE_NOOP("ValueTexts", "(empty)"));
    return texts.join(QStringLiteral(", "));
}

static QString choiceText(const QVariant &value, const ValueKind &kind)
{
    const auto choice = std::find_if(kind.choices.begin(), kind.choices.end(),
                                     [&value](const Choice &c) { return c.value == value; });
    return choice == kind.choices.end() ? value.toString() : choice->text;
}

static QString fontText(const QVariant &value, const ValueKind &)
{
    const auto font = value.value<QFont>();
    QStringList words{font.family(), QString::number(font.pointSize())};
    if (font.bold())
        words += translated(QT_TRANSLATE_NOOP("ValueTexts", "bold"));
    if (font.italic())
        words += translated(QT_TRANSLATE_NOOP("ValueTexts", "italic"));
    if (font.underline())
        words += translated(QT_TRANSLATE_NOOP("ValueTexts", "underlined"));
    return words.join(QStringLiteral(", "));
}

static QString colorText(const QVariant &value, const ValueKind &)
{
    const auto color = value.value<QColor>();
    if (!color.isValid())
        return translated(QT_TRANSLATE_NOOP("ValueTexts", "(no colour)"));
    return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toUpper();
}

static QString nameOrNone(const QString &name)
{
    return name.isEmpty() ? translated(QT_TRANSLATE_NOOP("ValueTexts", "(none)")) : name;
}

static QString imageText(const QVariant &value, const ValueKind &)
{
    const QFileInfo file(value.toString());
    const QString name = nameOrNone(file.fileName());
    if (value.toString().isEmpty() || file.exists())
        return name;
    return translated(QT_TRANSLATE_NOOP("ValueTexts", "%1 (missing)")).arg(name);
}

static QString referenceText(const QVariant &value, const ValueKind &)
{
    return nameOrNone(value.toString());
}

static QString plainText(const QVariant &value, const ValueKind &)
{
    return value.toString();
}

QString valueText(const QVariant &value, const ValueKind &kind)
{
    using Writer = QString (*)(const QVariant &, const ValueKind &);
    // In the order of the field types.
    static const Writer writers[] = {
        plainText, // undefined
        textOnOneLine,
        entriesText,
        entriesText,
        plainText, // integer
        [](const QVariant &number, const ValueKind &) { return numberText(number.toDouble()); },
        plainText, // bool
        choiceText,
        colorText,
        fontText,
        imageText,
        referenceText, // tag
        referenceText, // trend
    };
    static_assert(std::size(writers) == FieldType::Trend + 1);
    const bool mayBeNone = kind.type >= FieldType::Image;
    if (!value.isValid() && !mayBeNone)
        return translated(QT_TRANSLATE_NOOP("ValueTexts", "(no value)"));
    return writers[kind.type](value, kind);
}

QString shortValueText(const QVariant &value, const ValueKind &kind)
{
    static constexpr int digits = 6;
    const QString text = valueText(value, kind);
    if (kind.type != FieldType::Double || !value.isValid() || text.size() <= digits + 2)
        return text;
    const double number = value.toDouble();
    const QString fixed = QString::number(number, 'f', 0); // all digits before the point stay
    const bool isWhole = fixed.size() > digits && fixed.size() < text.size();
    return isWhole ? fixed : QString::number(number, 'g', digits);
}

//! A checkerboard shines through what is transparent.
static QPixmap swatch(const QColor &color)
{
    QPixmap pixmap(decorationSize, decorationSize);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    const int half = decorationSize / 2;
    painter.fillRect(0, 0, half, half, Qt::lightGray);
    painter.fillRect(half, half, half, half, Qt::lightGray);
    painter.fillRect(pixmap.rect(), color);
    painter.setPen(Qt::gray);
    painter.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return pixmap;
}

static QVariant thumbnail(const QString &path)
{
    const QFileInfo file(path);
    const QString key =
        QString::number(file.lastModified().toMSecsSinceEpoch()) + QLatin1Char(':') + path;
    QPixmap small;
    if (!QPixmapCache::find(key, &small)) {
        const QPixmap pixmap(path);
        if (!pixmap.isNull())
            small = pixmap.scaled(decorationSize, decorationSize, Qt::KeepAspectRatio,
                                  Qt::SmoothTransformation);
        QPixmapCache::insert(key, small);
    }
    return small.isNull() ? QVariant() : small;
}

QVariant valueDecoration(const QVariant &value, const ValueKind &kind)
{
    if (kind.type == FieldType::Color && value.value<QColor>().isValid())
        return swatch(value.value<QColor>());
    if (kind.type == FieldType::Image && !value.toString().isEmpty())
        return thumbnail(value.toString());
    return {};
}

static QString line(const QString &text)
{
    return text.isEmpty() ? QString() : QLatin1String("<br/>") + text.toHtmlEscaped();
}

static QString line(const char *label, const QString &text)
{
    return text.isEmpty() ? QString() : line(translated(label) + QLatin1Char(' ') + text);
}

static QString boundsText(const ValueKind &kind)
{
    if (!kind.minimum.isValid() && !kind.maximum.isValid())
        return {};
    const auto bound = [&kind](const QVariant &value) {
        return value.isValid() ? valueText(value, kind) : QStringLiteral("∞");
    };
    return QStringLiteral("%1 … %2").arg(bound(kind.minimum), bound(kind.maximum));
}

static QString acceptedTypes(const FieldMetaInformation &field)
{
    using Library = INTERNAL::WidgetLibraryPluginMetaInformation;
    QStringList names;
    for (const Library::TagType type : field.tagAcceptedTypes())
        names += Library::tagTypeToString(type);
    return names.join(QStringLiteral(", "));
}

static QString defaultText(const FieldMetaInformation &field, const ValueKind &kind,
                           const QString &language)
{
    const QVariant value = inLanguage(field.defaultValue(), language);
    return value.isValid() ? valueText(value, kind) : QString();
}

QString fontToolTip(const FieldMetaInformation &field, const QString &label)
{
    const QVariant font = field.defaultFont();
    return QStringLiteral("<b>%1</b> (font)").arg(label.toHtmlEscaped()) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Id:"), fontId(field.id())) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Default:"), fontText(font, {})) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Only if:"), field.requirements());
}

QString fieldToolTip(const FieldMetaInformation &field, const ValueKind &kind,
                     const QString &language)
{
    using Library = INTERNAL::WidgetLibraryPluginMetaInformation;
    const QString label = field.display().get(language, true).toHtmlEscaped();
    const QString flags =
        (field.readOnly() ? translated(QT_TRANSLATE_NOOP("ValueTexts", ", read-only"))
                          : QString()) +
        (field.isPrivate() ? translated(QT_TRANSLATE_NOOP("ValueTexts", ", private")) : QString());
    return QStringLiteral("<b>%1</b> (%2%3)")
               .arg(label, Library::fieldTypeToString(field.type()), flags) +
           line(field.description().get(language, true)) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Id:"), field.id()) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Range:"), boundsText(kind)) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Default:"), defaultText(field, kind, language)) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Accepts tags of:"), acceptedTypes(field)) +
           line(QT_TRANSLATE_NOOP("ValueTexts", "Only if:"), field.requirements());
}

} // namespace NARV::DEV
