#include "plugin/contentfindings.h"

#include <QMap>

namespace ZPPluginTool {

using Key = QLatin1String;

//! The versions of every widget in a list.
static QMultiMap<QString, QString> versionsById(const QJsonArray &widgets)
{
    QMultiMap<QString, QString> result;
    for (const QJsonValue &value : widgets)
        result.insert(value[Key("id")].toString(), value[Key("version")].toString());
    return result;
}

//! Reports every widget of one list that the other one does not have.
static void addMissing(const QJsonArray &widgets, const QMultiMap<QString, QString> &others,
                       const QString &text, const QString &otherVersions, Findings &findings)
{
    for (const QJsonValue &widget : widgets) {
        const QString id = widget[Key("id")].toString();
        const QString version = widget[Key("version")].toString();
        if (others.contains(id, version))
            continue;
        Finding finding(Severity::Error, "registration", text.arg(id, version));
        if (others.contains(id))
            finding.text += otherVersions.arg(others.values(id).join(QLatin1String(", ")));
        findings.append(finding);
    }
}

static void addClassFault(const QJsonValue &registration, const char *key, const char *role,
                          Findings &findings)
{
    const QString fault = registration[Key(key)].toString();
    if (!fault.isEmpty())
        findings.append(Finding(Severity::Error, "constructor",
                                QStringLiteral("%1 class of widget \"%2\" %3: %4")
                                    .arg(QLatin1String(role), registration[Key("id")].toString(),
                                         registration[Key("version")].toString(), fault)));
}

Findings registrationFindings(const QJsonArray &declaredWidgets, const QJsonArray &registrations)
{
    Findings findings;
    addMissing(declaredWidgets, versionsById(registrations),
               QStringLiteral("widget \"%1\" %2 is declared in the metadata but not registered"),
               QStringLiteral(", registered is version %1"), findings);
    addMissing(registrations, versionsById(declaredWidgets),
               QStringLiteral("widget \"%1\" %2 is registered but not declared in the metadata"),
               QStringLiteral(", declared is version %1"), findings);
    for (const QJsonValue &registration : registrations) {
        addClassFault(registration, "widgetFault", "widget", findings);
        addClassFault(registration, "graphicsObjectFault", "graphics object", findings);
    }
    return findings;
}

Findings translationFindings(const QJsonObject &translations)
{
    Findings findings;
    for (auto it = translations.begin(); it != translations.end(); ++it) {
        const QJsonValue translation = it.value();
        if (!translation[Key("isFile")].toBool())
            findings.append(Finding(Severity::Error, "translation",
                                    QStringLiteral("there is no translation file for %1, which the "
                                                   "metadata names")
                                        .arg(it.key())));
        const QJsonArray missing = translation[Key("missing")].toArray();
        for (const QJsonValue &text : missing)
            findings.append(
                Finding(Severity::Warning, "translation",
                        QStringLiteral("no %1 translation of %2").arg(it.key(), text.toString())));
    }
    return findings;
}

} // namespace ZPPluginTool
