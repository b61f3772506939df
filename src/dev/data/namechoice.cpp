#include "data/namechoice.h"

#include <QCoreApplication>

namespace NARV::DEV {

static constexpr int longestName = 200;

static QString tr(const char *text)
{
    return QCoreApplication::translate("NARV::DEV::TestData", text);
}

QString freeName(const QString &wanted, const std::function<bool(const QString &)> &isTaken)
{
    if (!isTaken(wanted))
        return wanted;
    int stem = wanted.size();
    while (stem > 0 && wanted.at(stem - 1).isDigit() && wanted.size() - stem < 6)
        --stem;
    int number = qMax(1, wanted.mid(stem).toInt());
    QString name;
    do
        name = wanted.left(stem) + QString::number(++number);
    while (isTaken(name));
    return name;
}

QString nameProblem(const QString &name, const std::function<bool(const QString &)> &isTaken)
{
    if (name.trimmed().isEmpty())
        return tr("A name is needed");
    if (name != name.trimmed())
        return tr("A name neither begins nor ends with a blank");
    if (name.size() > longestName)
        return tr("A name has at most %1 characters").arg(longestName);
    if (isTaken(name))
        return tr("“%1” exists already").arg(name);
    return {};
}

} // namespace NARV::DEV
