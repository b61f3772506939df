#pragma once

#include <QString>
#include <QVector>

namespace ZPPluginTool {

//! A step from a JSON value into it: to a member of an object, or to an element of an array.
struct PathStep
{
    PathStep() = default;
    PathStep(const QString &memberKey)
        : key(memberKey)
    {
    }
    PathStep(int elementIndex)
        : index(elementIndex)
    {
    }

    bool isIndex() const { return index >= 0; }

    QString key;
    int index = -1; //!< not negative for an element of an array
};

using ValuePath = QVector<PathStep>;

//! Reads "widgets[3].fields[1].minimum".
ValuePath valuePathFromText(const QString &text);
QString valuePathToText(const ValuePath &path);

} // namespace ZPPluginTool

Q_DECLARE_TYPEINFO(ZPPluginTool::PathStep, Q_MOVABLE_TYPE);
