#include "properties/fieldrequirements.h"

#include <NARV/LogHandler>

#include <QCoreApplication>

#include <algorithm>

namespace NARV::DEV {

namespace {

struct Condition
{
    QString comparison; //!< "==", "<", ">", or empty for a field id alone
    QString fieldId;
    QString constant;
    bool isJoinedWithAnd = false;
};

struct Comparison
{
    QLatin1String sign;
    bool (*holds)(const QVariant &value, const QString &constant);
    const char *reason; //!< %1 the field, %2 its value, %3 the constant
};

// In the order in which a term is searched for them.
const Comparison comparisons[] = {
    {QLatin1String("=="),
     [](const QVariant &value, const QString &constant) { return constant == value.toString(); },
     QT_TRANSLATE_NOOP("FieldRequirements", "\"%1\" is \"%2\", not \"%3\"")},
    {QLatin1String("<"),
     [](const QVariant &value, const QString &constant) {
         return value.toDouble() < constant.toDouble();
     },
     QT_TRANSLATE_NOOP("FieldRequirements", "\"%1\" is \"%2\", not less than \"%3\"")},
    {QLatin1String(">"),
     [](const QVariant &value, const QString &constant) {
         return value.toDouble() > constant.toDouble();
     },
     QT_TRANSLATE_NOOP("FieldRequirements", "\"%1\" is \"%2\", not greater than \"%3\"")},
};

const Comparison existence = {
    QLatin1String(""), [](const QVariant &value, const QString &) { return value.isValid(); },
    QT_TRANSLATE_NOOP("FieldRequirements", "\"%1\" has no value")};

const Comparison &comparisonNamed(const QString &sign)
{
    const auto *found =
        std::find_if(std::begin(comparisons), std::end(comparisons),
                     [&sign](const Comparison &candidate) { return candidate.sign == sign; });
    return found == std::end(comparisons) ? existence : *found;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("FieldRequirements", text);
}

bool readTerm(const QString &term, Condition &condition)
{
    for (const Comparison &comparison : comparisons) {
        if (!term.contains(comparison.sign))
            continue;
        const QStringList parts = term.split(comparison.sign);
        condition.comparison = comparison.sign;
        condition.fieldId = parts.first();
        condition.constant = parts.last();
        return parts.size() == 2;
    }
    condition.fieldId = term;
    return true;
}

QStringList termsOf(const QString &requirements)
{
    for (const QChar joiner : {QLatin1Char('&'), QLatin1Char('|')}) {
        if (requirements.contains(joiner))
            return requirements.split(joiner);
    }
    return {requirements};
}

//! False, with the term that is to blame, if the text is malformed.
bool readConditions(const QString &requirements, QVector<Condition> &conditions, QString &malformed)
{
    if (requirements.isEmpty())
        return true;
    const bool isJoinedWithAnd = requirements.contains(QLatin1Char('&'));
    for (const QString &term : termsOf(requirements)) {
        Condition condition;
        condition.isJoinedWithAnd = isJoinedWithAnd;
        if (!readTerm(term, condition)) {
            malformed = term;
            return false;
        }
        conditions.append(condition);
    }
    return true;
}

//! Why the condition does not hold; empty if it does.
QString reasonAgainst(const Condition &condition, const QVariant &value)
{
    const Comparison &comparison = comparisonNamed(condition.comparison);
    if (comparison.holds(value, condition.constant))
        return {};
    const QString reason = translated(comparison.reason);
    if (condition.comparison.isEmpty())
        return reason.arg(condition.fieldId);
    return reason.arg(condition.fieldId, value.toString(), condition.constant);
}

QString noteOnJoiner(const QVector<Condition> &conditions)
{
    if (conditions.size() < 2)
        return {};
    const QString joiner =
        conditions.last().isJoinedWithAnd ? QStringLiteral("&") : QStringLiteral("|");
    return translated(" (the last of the conditions joined by \"%1\" decides)").arg(joiner);
}

QString reportMalformed(const QString &fieldId, const QString &requirements,
                        const QString &malformed)
{
    LogHandler(QString(), nullptr, 0, nullptr, "TESTAPP").critical().debug()
        << "The requirements" << requirements << "of the field" << fieldId
        << "is invalid:" << malformed;
    return translated("The requirements \"%1\" are malformed at \"%2\"")
        .arg(requirements, malformed);
}

} // namespace

FieldRequirements::FieldRequirements(const QMap<QString, Field> &fieldsById,
                                     const QMap<QString, Group> &groupsByName)
    : m_fields(fieldsById)
    , m_groups(groupsByName)
{
}

void FieldRequirements::update(const Reader &value)
{
    m_reasons.clear();
    for (auto field = m_fields.cbegin(); field != m_fields.cend(); ++field)
        update(field.key(), *field, value);
    for (const Group &group : qAsConst(m_groups))
        group.row->isHidden = std::all_of(group.children.begin(), group.children.end(),
                                          [](const Row *row) { return row->isHidden; });
}

void FieldRequirements::update(const QString &fieldId, const Field &field, const Reader &value)
{
    Reason reason;
    for (int widget = 0; widget < field.requirements.size() && reason.text.isEmpty(); ++widget) {
        QVector<Condition> conditions;
        QString malformed;
        reason.widget = widget;
        if (!readConditions(field.requirements[widget], conditions, malformed)) {
            reason.text = reportMalformed(fieldId, field.requirements[widget], malformed);
            m_reasons.insert(fieldId, reason);
            return;
        }
        // However they are joined, each condition overrides the one before.
        for (const Condition &condition : qAsConst(conditions))
            reason.text = reasonAgainst(condition, value(widget, condition.fieldId));
        if (!reason.text.isEmpty())
            reason.text += noteOnJoiner(conditions);
    }
    for (Row *row : field.rows)
        row->isHidden = !reason.text.isEmpty();
    if (!reason.text.isEmpty())
        m_reasons.insert(fieldId, reason);
}

} // namespace NARV::DEV
