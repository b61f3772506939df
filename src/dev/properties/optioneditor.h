#pragma once

#include "properties/propertyeditor.h"

namespace NARV::DEV {

//! One of the choices of its kind, by text. A value that is none of them is kept and shown.
class OptionEditor : public PropertyEditor
{
    Q_OBJECT

public:
    explicit OptionEditor(QWidget *parent);

    void setKind(const ValueKind &kind) override;
    QVariant value() const override;
    void setValue(const QVariant &value) override;
    void showChoices() override;

private:
    class Box;
    Box *m_box;
};

} // namespace NARV::DEV
