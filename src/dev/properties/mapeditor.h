#pragma once

#include "properties/lineseditor.h"

namespace NARV::DEV {

//! Texts by number, one on a line as "number: text".
class MapEditor : public LinesEditor
{
    Q_OBJECT

public:
    explicit MapEditor(QWidget *parent);

    QString problem() const override;

protected:
    QVariant read(const QString &text) const override;
    QString write(const QVariant &value) const override;
};

} // namespace NARV::DEV
