#pragma once

#include "properties/lineseditor.h"

namespace NARV::DEV {

//! A text; Shift+Enter begins a new line of it.
class TextEditor : public LinesEditor
{
    Q_OBJECT

public:
    explicit TextEditor(QWidget *parent);

protected:
    QVariant read(const QString &text) const override { return text; }
    QString write(const QVariant &value) const override { return value.toString(); }
};

} // namespace NARV::DEV
