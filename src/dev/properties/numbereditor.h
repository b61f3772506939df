#pragma once

#include "properties/propertyeditor.h"

namespace NARV::DEV {

class NumberBox;

//! An integer or a double: typed, or stepped by arrow keys and wheel within the bounds.
class NumberEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit NumberEditor(QWidget *parent);

    void setKind(const ValueKind &kind) override { m_kind = kind; }
    //! Invalid if the text is no such number.
    QVariant value() const override;
    void setValue(const QVariant &value) override;
    QString problem() const override;

private:
    QVariant read(const QString &text) const;
    void step(int steps);

    ValueKind m_kind;
    NumberBox *m_box;
};

} // namespace NARV::DEV
