#pragma once

#include "properties/lineseditor.h"

namespace NARV::DEV {

//! A list of texts, one on a line. A line feed inside a text reads "\n", a backslash "\\".
class ZPPLUGIN_DEV_EXPORT ListEditor : public LinesEditor
{
    Q_OBJECT

public:
    explicit ListEditor(QWidget *parent);

    static QString escaped(QString text);
    static QString unescaped(const QString &line);

protected:
    QVariant read(const QString &text) const override;
    QString write(const QVariant &value) const override;
};

} // namespace NARV::DEV
